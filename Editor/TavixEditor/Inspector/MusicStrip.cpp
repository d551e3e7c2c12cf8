#include "TavixEditor/Inspector/MusicStrip.h"

#include "Editor/EditorDesignSystem/Controls/Basics.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "TavixCore/Document/MusicBed.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int waveHeight = 56;
constexpr double leastBeatPoints = 4;

}   // namespace

// The whole file, from its first sample to its last.
class MusicStrip::Wave final : public QWidget {
public:
    explicit Wave(QWidget* parent) : QWidget(parent) {
        setFixedHeight(waveHeight);
        setAccessibleName(MusicStrip::tr("Waveform of the music"));
    }
    void show(const MusicPicture& picture, const std::optional<BeatAnalysis>& heard, const MusicBed& bed) {
        wave_ = picture.wave;
        sec_ = wave_ ? wave_->durationSec() : 0;
        heard_ = heard;
        bed_ = bed;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Theme& theme = Style::theme();
        QPainter painter(this);
        drawBox(painter, rect(), radius::field, theme.field);
        if (!(sec_ > 0)) return;
        paintSections(painter);
        const double middle = height() / 2.0, half = height() / 2.0 - 4, step = 1 / devicePixelRatioF();
        painter.setPen(QPen(theme.wave, step));
        for (double x = 0; x < width(); x += step) {
            const Waveform::Peak peak = wave_->between(secOf(x), secOf(x + step));
            if (peak.high > peak.low)
                painter.drawLine(
                    QPointF(x, middle - half * peak.high / 127), QPointF(x, middle - half * peak.low / 127));
        }
        paintBeats(painter);
    }

private:
    double secOf(double x) const { return x * sec_ / std::max(width(), 1); }
    double xOf(double sec) const { return sec / sec_ * width(); }

    // The louder, the more ground; the drop is a line.
    void paintSections(QPainter& painter) const {
        constexpr double quietDb = -40, mostAlpha = 0.3;
        if (!heard_) return;
        for (std::size_t i = 0; i < heard_->sections.size(); ++i) {
            const bool isLast = i + 1 == heard_->sections.size();
            const double from = xOf(heard_->sections[i].startSec),
                         to = isLast ? width() : xOf(heard_->sections[i + 1].startSec);
            const double loudness = std::clamp(1 - heard_->sections[i].meanRmsDb / quietDb, 0.0, 1.0);
            painter.fillRect(QRectF(from, 0, std::max(to - from - 1, 0.0), height()),
                withAlpha(Style::theme().wave, mostAlpha * loudness));
        }
        if (heard_->dropSec)
            painter.fillRect(QRectF(xOf(*heard_->dropSec) - 1, 0, 2, height()), Style::theme().accent);
    }
    // Of the document's own grid, every fourth the stronger.
    void paintBeats(QPainter& painter) const {
        const double bpm = bed_.bpm.value_or(0), beatSec = bpm > 0 ? 60 / bpm : 0;
        if (!(beatSec > 0) || xOf(4 * beatSec) < leastBeatPoints) return;
        const bool showsAll = xOf(beatSec) >= leastBeatPoints;
        const double first = bed_.firstBeatSec;
        for (int i = 0; first + i * beatSec < sec_; i += showsAll ? 1 : 4)
            painter.fillRect(QRectF(xOf(first + i * beatSec), height() - (i % 4 == 0 ? 8 : 4), 1, 8),
                withAlpha(Style::theme().text, i % 4 == 0 ? 0.7 : 0.4));
    }

    std::shared_ptr<const Waveform> wave_;
    double sec_ = 0;
    std::optional<BeatAnalysis> heard_;
    MusicBed bed_;
};

MusicStrip::MusicStrip(CompositionEditorModel& model, QWidget* parent)
    : QWidget(parent), model_(model), wave_(new Wave(this)),
      heard_(makeLabel({}, TextSize::caption, Tone::secondary, this)) {
    setObjectName(QStringLiteral("musicStrip"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(space::tight);
    column->addWidget(wave_);
    heard_->setWordWrap(true);
    column->addWidget(heard_);
    connections_.push_back(tavix::show([this] { read(); }, model_.state.edited));
    connections_.push_back(
        watch([this] { showHeard(); }, model_.state.musicAnalysis, model_.state.isAnalyzingMusic));
}

void MusicStrip::read() {
    const std::filesystem::path file = musicFileOf(model_);
    if (file == file_) return showHeard();
    file_ = file;
    picture_ = {};
    showHeard();
    if (!file.empty())
        loadMusicPicture(file, this, [this, file](const MusicPicture& picture) {
            if (file != file_) return;
            picture_ = picture;
            showHeard();
        });
}

void MusicStrip::showHeard() {
    const auto& audio = model_.state.edited().spec.audio;
    const MusicBed bed = audio && audio->music ? *audio->music : MusicBed();
    const auto& heard = model_.state.musicAnalysis() ? model_.state.musicAnalysis() : picture_.heard;
    wave_->show(picture_, heard, bed);
    heard_->setText(summary());
}

QString MusicStrip::summary() const {
    if (model_.state.isAnalyzingMusic()) return tr("Listening…");
    const auto& heard = model_.state.musicAnalysis() ? model_.state.musicAnalysis() : picture_.heard;
    if (!heard)
        return picture_.wave ? tr("Not listened to yet: Find Beats tells its tempo and its sections.")
                             : QString();
    const QLocale locale;
    const auto shown = [&](double value, int digits) { return locale.toString(value, 'f', digits); };
    QStringList parts;
    if (heard->bpm > 0) {
        parts << tr("%1 beats a minute").arg(shown(heard->bpm, 1));
        parts << tr("first beat at %1 s").arg(shown(heard->firstBeatSec, 2));
        parts << tr("%1 % sure").arg(int(std::lround(heard->confidence * 100)));
        if (heard->alternativeBpm) parts << tr("or %1").arg(shown(*heard->alternativeBpm, 1));
    } else {
        parts << tr("no beat");
    }
    if (heard->dropSec) parts << tr("drop at %1 s").arg(shown(*heard->dropSec, 2));
    if (!heard->sections.empty()) parts << tr("%1 sections").arg(heard->sections.size());
    return parts.join(QStringLiteral(" · "));
}

}   // namespace tavix::editor
