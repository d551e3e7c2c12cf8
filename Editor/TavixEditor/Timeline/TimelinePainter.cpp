#include "TavixEditor/Timeline/TimelinePainter.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace design;
using namespace timeline;

namespace {

constexpr int labelInset = 8, diamondSize = 11;
constexpr double leastLabelled = 26;

QRectF rectOf(const Box& box) { return {box.x, box.y, box.width, box.height}; }

QColor laneColor() { return Style::theme().isDark ? QColor(0x22, 0x24, 0x28) : QColor(0xf2, 0xf3, 0xf6); }
QColor bandColor(bool isSelected) {
    if (Style::theme().isDark) return isSelected ? QColor(0x46, 0x4b, 0x58) : QColor(0x33, 0x36, 0x3d);
    return isSelected ? QColor(0xc9, 0xce, 0xdd) : QColor(0xe1, 0xe3, 0xe9);
}

// Whether something that spans those points may be seen, with a little room for its edge.
bool isIn(const QRect& content, double fromX, double toX) {
    return toX + 4 >= content.left() && fromX - 4 <= content.right() + 1;
}

void paintChevron(QPainter& painter, const Box& box, bool isOpen) {
    if (box.width <= 0) return;
    const QPointF middle(box.x + box.width / 2 + 1, box.y + box.height / 2);
    painter.setPen(QPen(Style::theme().secondary, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    QPolygonF corner{{-2.5, -1.5}, {0, 1.5}, {2.5, -1.5}};
    if (!isOpen) corner = QPolygonF{{-1.5, -2.5}, {1.5, 0}, {-1.5, 2.5}};
    painter.drawPolyline(corner.translated(middle));
}

}   // namespace

void TimelinePainter::forget() {
    barLabels_.clear();
    bandLabels_.clear();
    diamonds_[0] = diamonds_[1] = {};
}

void TimelinePainter::setMusic(
    std::shared_ptr<const Waveform> wave, const std::optional<BeatAnalysis>& heard) {
    wave_ = std::move(wave);
    heard_ = heard;
}

const QStaticText& TimelinePainter::label(
    std::vector<QStaticText>& cache, std::size_t index, const std::string& text) const {
    if (cache.size() <= index) cache.resize(index + 1);
    if (cache[index].text().isEmpty() && !text.empty()) {
        cache[index].setTextFormat(Qt::PlainText);
        cache[index].setText(QString::fromStdString(text));
        cache[index].prepare({}, fontOf(TextSize::caption));
    }
    return cache[index];
}

void TimelinePainter::paintHead(QPainter& painter, const Shown& shown, const QRect& content) {
    painter.fillRect(content, Style::theme().panel);
    painter.setFont(fontOf(TextSize::caption));
    paintRuler(painter, shown, content);
    paintBands(painter, shown, content);
}

void TimelinePainter::paintBody(QPainter& painter, const Shown& shown, const QRect& content) {
    painter.fillRect(content, Style::theme().panel);
    for (int row = 0; row < shown.scene.rows; ++row) {
        const QRect lane(content.x(), int(shown.layout.laneTop(row)), content.width(), Layout::rowHeight);
        if (lane.intersects(content)) painter.fillRect(lane & content, laneColor());
    }
    painter.setFont(fontOf(TextSize::caption));
    paintBeats(painter, shown, content);
    paintBars(painter, shown, content);
    paintSound(painter, shown, content);
    paintKeyframes(painter, shown, content);
}

void TimelinePainter::paintRuler(QPainter& painter, const Shown& shown, const QRect& content) const {
    for (const FilmRange& range : shown.cached) {
        const double from = shown.layout.scale.xOf(range.startSec), to = shown.layout.scale.xOf(range.endSec);
        painter.fillRect(
            QRectF(from, Layout::rulerHeight - 2, to - from, 2), withAlpha(Style::theme().success, 0.55));
    }
    for (const RulerTick& tick : rulerTicks(shown.scene.totalSec)) {
        const double x = std::floor(shown.layout.scale.xOf(tick.sec));
        if (!isIn(content, x, x + 40)) continue;
        painter.fillRect(QRectF(x, Layout::rulerHeight - 7, 1, 5), Style::theme().disabled);
        painter.setPen(Style::theme().secondary);
        // Beside its tick; that of the end stands before it.
        const QString label = QString::fromStdString(tick.label);
        const double width = painter.fontMetrics().horizontalAdvance(label);
        const bool hasRoom = x + 4 + width <= shown.layout.scale.contentWidth();
        painter.drawText(QPointF(hasRoom ? x + 4 : x - 3 - width, 12.5), label);
    }
}

void TimelinePainter::paintBands(QPainter& painter, const Shown& shown, const QRect& content) {
    painter.setRenderHint(QPainter::Antialiasing);
    const Scene& scene = shown.scene;
    for (std::size_t i = 0; i < scene.bands.size(); ++i) {
        const Band& band = scene.bands[i];
        const QRectF box = rectOf(shown.layout.bandBox(band)).adjusted(0.5, 1, -0.5, -1);
        if (!isIn(content, box.left(), box.right())) continue;
        drawBox(painter, box, radius::bar, bandColor(band.isSelected));
        paintChevron(painter, shown.layout.chevronBox(band), !band.isCollapsed);
        const Box chevron = shown.layout.chevronBox(band);
        const double left = chevron.x + std::max(chevron.width, double(labelInset));
        const double overlap = band.transitionSec * shown.layout.scale.pps();
        const QRectF words(left, box.top(), box.right() - overlap - left - labelInset, box.height());
        if (words.width() < 8) continue;
        const QFontMetricsF metrics(painter.font());
        const QString length = QString::fromStdString(band.length);
        const double lengthWidth = metrics.horizontalAdvance(length);
        const QStaticText& name = label(bandLabels_, i, band.name);
        const bool showsLength = words.width() > name.size().width() + lengthWidth + 16;
        painter.save();
        painter.setClipRect(words, Qt::IntersectClip);
        painter.setPen(Style::theme().text);
        painter.drawStaticText(QPointF(words.left(), words.center().y() - name.size().height() / 2), name);
        painter.setPen(Style::theme().secondary);
        if (showsLength)
            painter.drawText(words, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, length);
        painter.restore();
    }
    for (std::size_t i = 0; i + 1 < scene.bands.size(); ++i) {
        if (scene.bands[i].transitionSec <= 0) continue;
        const QRectF box = rectOf(shown.layout.transitionBox(scene, i));
        if (!isIn(content, box.left(), box.right())) continue;
        const bool isUnder =
            (shown.hover.part == Part::transition || shown.hover.part == Part::transitionStart) &&
            shown.hover.index == i;
        drawBox(
            painter, box, 3, withAlpha(Style::theme().accent, isUnder ? 0.75 : Layout::transitionOpacity));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

// Beat lines are the same in every row of pixels: laid into one, and repeated downward.
void TimelinePainter::paintBeats(QPainter& painter, const Shown& shown, const QRect& content) const {
    if (!shown.scene.beats) return;
    const double ratio = shown.pixelRatio;
    QImage row(int(std::ceil(content.width() * ratio)), 8, QImage::Format_ARGB32_Premultiplied);
    row.fill(Qt::transparent);
    const auto ticks =
        beatTicks(*shown.scene.beats, shown.layout.scale, content.left() - 1, content.right() + 1);
    if (ticks.empty()) return;
    for (const BeatTick& tick : ticks) {
        const int x = int((std::floor(tick.x) - content.left()) * ratio);
        if (x < 0 || x >= row.width()) continue;
        const double dim = 0.75;   // lines lie behind everything, and there are many
        const QColor color =
            withAlpha(Style::theme().secondary, dim * (tick.isStrong ? strongBeatOpacity : weakBeatOpacity));
        for (int y = 0; y < row.height(); ++y) row.setPixelColor(x, y, color);
    }
    row.setDevicePixelRatio(ratio);
    painter.drawTiledPixmap(content, QPixmap::fromImage(std::move(row)));
}

void TimelinePainter::paintBars(QPainter& painter, const Shown& shown, const QRect& content) {
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < shown.scene.bars.size(); ++i) {
        const QRectF box = rectOf(shown.layout.barBox(shown.scene.bars[i]));
        if (box.adjusted(-3, -3, 3, 3).intersects(QRectF(content))) paintBar(painter, shown, i, box);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TimelinePainter::paintBar(QPainter& painter, const Shown& shown, std::size_t index, const QRectF& box) {
    const Bar& bar = shown.scene.bars[index];
    const Theme& theme = Style::theme();
    const bool isUnder = shown.hover.index == index &&
                         (shown.hover.part == Part::barBody || shown.hover.part == Part::barStart ||
                             shown.hover.part == Part::barEnd);
    QColor fill = theme.kinds[std::size_t(bar.kind)];
    if (isUnder) fill = fill.lighter(108);
    // A hair of the ground parts bars that lie over each other.
    drawBox(painter, box.adjusted(-0.5, 0, 0.5, 0), radius::bar, theme.panel);
    drawBox(painter, box.adjusted(0.5, 0, -0.5, 0), radius::bar, fill);
    if (box.width() >= leastLabelled) {
        const QStaticText& words =
            label(barLabels_, index, utf8Of(barWords(bar.label, bar.isLabelledByKind)));
        const bool fits = words.size().width() + 2 * labelInset <= box.width();
        if (!fits) {
            painter.save();
            painter.setClipRect(box.adjusted(0, 0, -4, 0), Qt::IntersectClip);
        }
        painter.setPen(Qt::white);
        const double top =
            bar.keyframesSec.empty() ? box.center().y() - words.size().height() / 2 : box.top() + 1;
        painter.drawStaticText(QPointF(box.left() + labelInset - 1, top), words);
        if (!fits) painter.restore();
    }
    for (const double sec : bar.keyframesSec) {
        const double x = std::round(box.left() + shown.layout.tickX(bar, sec));
        painter.fillRect(QRectF(x - 0.75, box.bottom() - 6, 1.5, 4.5), QColor(255, 255, 255, 190));
    }
    if (isUnder && box.width() > 18)
        for (const double x : {box.left() + 3.0, box.right() - 4.5})
            drawBox(painter, QRectF(x, box.center().y() - 5, 1.5, 10), 0.75, QColor(255, 255, 255, 170));
    if (!bar.isSelected) return;
    const QColor line = theme.isDark ? QColor(Qt::white) : theme.text;
    drawBox(painter, box.adjusted(0.5, 0, -0.5, 0), radius::bar, Qt::transparent, line, 1.75);
}

void TimelinePainter::paintSound(QPainter& painter, const Shown& shown, const QRect& content) const {
    const Layout& layout = shown.layout;
    const Scene& scene = shown.scene;
    if (scene.hasMusic) {
        const QRect strip(content.x(), int(layout.waveTop(scene)), content.width(), Layout::waveHeight);
        if (strip.intersects(content)) paintWave(painter, shown, strip);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < scene.cues.size(); ++i) {
        const double x = layout.cueX(scene.cues[i]), y = layout.soundTop(scene) + Layout::cueHeight / 2.0;
        if (!isIn(content, x, x + 80)) continue;
        const bool isUnder = shown.hover.part == Part::cue && shown.hover.index == i;
        painter.setPen(Qt::NoPen);
        painter.setBrush(isUnder ? Style::theme().accent : Style::theme().wave);
        painter.drawEllipse(QPointF(x, y), 4, 4);
        painter.setPen(Style::theme().secondary);
        const double next = i + 1 < scene.cues.size() ? layout.cueX(scene.cues[i + 1]) - x - 12 : 120;
        if (next > 24)
            painter.drawText(QPointF(x + 8, y + 4),
                QFontMetricsF(painter.font())
                    .elidedText(QString::fromStdString(scene.cues[i].name), Qt::ElideRight, next));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TimelinePainter::paintWave(QPainter& painter, const Shown& shown, const QRect& strip) const {
    painter.fillRect(strip, laneColor());
    paintSections(painter, shown, strip);
    if (!wave_ || wave_->isEmpty()) return;
    const Layout& layout = shown.layout;
    const double ratio = shown.pixelRatio, middle = strip.center().y() + 0.5, half = strip.height() / 2.0 - 3;
    const auto fileSec = [&](double x) { return layout.scale.secOf(x) + shown.scene.musicStartsAtSec; };
    std::vector<QLineF> lines;
    for (int column = 0; column < strip.width() * ratio; ++column) {
        const double x = strip.x() + column / ratio;
        const double sec = layout.scale.secOf(x);
        if (sec < 0 || sec > shown.scene.totalSec) continue;
        const Waveform::Peak peak = wave_->between(fileSec(x), fileSec(x + 1 / ratio));
        if (peak.high == peak.low) continue;
        lines.emplace_back(x + 0.5 / ratio, middle - half * peak.high / 127, x + 0.5 / ratio,
            middle - half * peak.low / 127);
    }
    painter.setPen(QPen(Style::theme().wave, 1 / ratio));
    painter.drawLines(lines.data(), int(lines.size()));
    paintDrop(painter, shown, strip);
}

// The louder a section is, the more ground it has.
void TimelinePainter::paintSections(QPainter& painter, const Shown& shown, const QRect& strip) const {
    constexpr double quietDb = -40, mostAlpha = 0.22;
    if (!heard_) return;
    const auto xOf = [&](double fileSec) {
        return shown.layout.scale.xOf(
            std::clamp(fileSec - shown.scene.musicStartsAtSec, 0.0, shown.scene.totalSec));
    };
    for (std::size_t i = 0; i < heard_->sections.size(); ++i) {
        const bool isLast = i + 1 == heard_->sections.size();
        const double from = xOf(heard_->sections[i].startSec),
                     to = xOf(isLast ? heard_->durationSec : heard_->sections[i + 1].startSec);
        if (to - from < 1 || !isIn(strip, from, to)) continue;
        const double loudness = std::clamp(1 - heard_->sections[i].meanRmsDb / quietDb, 0.0, 1.0);
        painter.fillRect(QRectF(from, strip.top(), to - from, strip.height()),
            withAlpha(Style::theme().wave, mostAlpha * loudness));
        painter.fillRect(QRectF(std::floor(from), strip.top(), 1, strip.height()), Style::theme().hairline);
    }
}

void TimelinePainter::paintDrop(QPainter& painter, const Shown& shown, const QRect& strip) const {
    if (!heard_ || !heard_->dropSec) return;
    const double x = shown.layout.scale.xOf(*heard_->dropSec - shown.scene.musicStartsAtSec);
    if (!isIn(strip, x, x + 40)) return;
    painter.fillRect(QRectF(std::floor(x), strip.top(), 1.5, strip.height()), Style::theme().warning);
    painter.setPen(Style::theme().warning);
    painter.drawText(QPointF(x + 5, strip.top() + 12), QCoreApplication::translate("Timeline", "Drop"));
}

void TimelinePainter::paintKeyframes(QPainter& painter, const Shown& shown, const QRect& content) {
    const Scene& scene = shown.scene;
    if (!scene.layer) return;
    const Layout& layout = shown.layout;
    for (std::size_t i = 0; i < scene.keyframeRows.size(); ++i) {
        const KeyframeRow& row = scene.keyframeRows[i];
        const double top = layout.keyframeRowTop(scene, i);
        if (top > content.bottom() || top + Layout::rowHeight < content.top()) continue;
        painter.fillRect(QRectF(content.x(), top, content.width(), Layout::rowHeight), laneColor());
        const double middle = top + Layout::rowHeight / 2.0;
        if (row.marks.size() > 1) {
            const double from = layout.markX(scene, row.marks.front()),
                         to = layout.markX(scene, row.marks.back());
            painter.fillRect(QRectF(from, middle - 0.5, to - from, 1), Style::theme().disabled);
        }
        for (std::size_t k = 0; k < row.marks.size(); ++k) {
            const double x = layout.markX(scene, row.marks[k]);
            if (!isIn(content, x - diamondSize, x + diamondSize)) continue;
            const bool isSelected =
                std::ranges::find(shown.marks, Drag::MarkPlace{i, k}) != shown.marks.end();
            const double half = diamondSize / 2.0;
            painter.drawPixmap(QPointF(std::round(x - half), std::round(middle - half)),
                diamond(isSelected, shown.pixelRatio));
        }
    }
}

const QPixmap& TimelinePainter::diamond(bool isSelected, double ratio) {
    QPixmap& stamp = diamonds_[isSelected];
    if (!stamp.isNull() && stamp.devicePixelRatio() == ratio) return stamp;
    stamp = QPixmap(QSize(diamondSize, diamondSize) * ratio);
    stamp.setDevicePixelRatio(ratio);
    stamp.fill(Qt::transparent);
    QPainter painter(&stamp);
    painter.setRenderHint(QPainter::Antialiasing);
    const Theme& theme = Style::theme();
    painter.setPen(QPen(isSelected ? theme.accent.darker(130) : withAlpha(Qt::black, 0.45), 1));
    painter.setBrush(isSelected     ? theme.accent
                     : theme.isDark ? QColor(0xe8, 0xe9, 0xec)
                                    : QColor(0x4b, 0x4f, 0x58));
    constexpr double middle = diamondSize / 2.0, reach = middle - 0.9;
    painter.drawPolygon(QPolygonF{{middle, middle - reach}, {middle + reach, middle},
        {middle, middle + reach}, {middle - reach, middle}});
    return stamp;
}

}   // namespace tavix::editor
