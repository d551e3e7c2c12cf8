// The editor's own icons: lines on a grid of 16, drawn at any scale in the colours of the theme in force.
#pragma once

#include <QIcon>

class QPainter;
class QRectF;

namespace tavix::design {

enum class Icon {
    play,
    pause,
    toStart,
    toEnd,
    stepBack,
    stepForward,
    loop,
    volume,
    muted,
    undo,
    redo,
    save,
    open,
    add,
    close,
    search,
    exportFilm,
    folder,
    warning,
    error,
    info,
    check,
    text,
    device,
    image,
    clip,
    shape,
    fill,
    zoomIn,
    zoomOut,
    fit,
    guides,
    more,
    sparkle,
    palette,
    trash,
    wrench,
    braces,
    history,
    music,
    gallery,
};

// Follows the theme, and the mode that it is asked for: normal, disabled, or selected on the accent.
QIcon iconOf(Icon icon);
void drawIcon(QPainter& painter, const QRectF& rect, Icon icon, const QColor& color);

}   // namespace tavix::design
