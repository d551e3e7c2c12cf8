#include "TavixEditor/Windows/RecentCard.h"

#include "Editor/EditorDesignSystem/Icons/Icons.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/Words.h"

#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>

namespace tavix::editor {

using namespace design;

namespace {

QString homely(const std::filesystem::path& path) {
    const QString full = pathWords(path), home = QDir::homePath();
    return full.startsWith(home + QLatin1Char('/')) ? QLatin1Char('~') + full.mid(home.size()) : full;
}

}   // namespace

RecentCard::RecentCard(RecentProjects::Item item, QWidget* parent)
    : QAbstractButton(parent), item_(std::move(item)), where_(homely(item_.path.parent_path())) {
    setText(words(item_.name()));
    setToolTip(pathWords(item_.path));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void RecentCard::setThumbnail(QImage picture) {
    thumbnail_ = std::move(picture);
    update();
}

QSize RecentCard::sizeHint() const { return {240, thumbnailPx + 2 * space::small}; }

void RecentCard::paintEvent(QPaintEvent*) {
    const Theme& theme = Style::theme();
    QPainter painter(this);
    if (isDown() || underMouse())
        drawBox(painter, rect(), radius::card, isDown() ? theme.pressed : theme.hover);
    if (hasFocus()) drawBox(painter, rect(), radius::card, Qt::transparent, theme.focus, 1.5);

    const QRectF frame(space::small, space::small, thumbnailPx, thumbnailPx);
    drawBox(painter, frame, radius::field, theme.field);
    if (thumbnail_.isNull()) {
        drawIcon(painter, frame.adjusted(14, 14, -14, -14), Icon::clip, theme.secondary);
    } else {
        const QSizeF size = QSizeF(thumbnail_.size()).scaled(frame.size(), Qt::KeepAspectRatio);
        QRectF target(QPointF(), size);
        target.moveCenter(frame.center());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, thumbnail_);
    }
    const QRect text =
        rect().adjusted(int(frame.right()) + space::medium, space::medium, -space::medium, -space::medium);
    const QRect upper(text.left(), text.top(), text.width(), text.height() / 2);
    const QRect lower(text.left(), upper.bottom(), text.width(), text.height() / 2);
    painter.setFont(fontOf(TextSize::caption));
    painter.setPen(theme.secondary);
    const QDateTime when = QDateTime::fromSecsSinceEpoch(item_.date.time_since_epoch().count());
    const QString date =
        when.toSecsSinceEpoch() > 0 ? QLocale().toString(when, QLocale::ShortFormat) : QString();
    painter.drawText(upper, Qt::AlignRight | Qt::AlignVCenter, date);
    painter.drawText(lower, Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(where_, Qt::ElideMiddle, lower.width()));
    const int dateWidth = painter.fontMetrics().horizontalAdvance(date) + space::small;
    painter.setFont(fontOf(TextSize::strong));
    painter.setPen(theme.text);
    painter.drawText(upper.adjusted(0, 0, -dateWidth, 0), Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(this->text(), Qt::ElideRight, upper.width() - dateWidth));
}

}   // namespace tavix::editor
