#include "Editor/EditorDesignSystem/Icons/Icons.h"

#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <array>
#include <cstddef>
#include <sstream>

namespace tavix::design {

namespace {

// A path in words: "m x y", "l x y", "c x1 y1 x2 y2 x y", "z", "o x y r" for a circle, "r x y w h radius" for
// a box; "f" fills what was drawn so far instead of stroking it.
struct Drawing {
    Icon icon;
    const char* path;
};
constexpr std::array drawings{
    Drawing{Icon::play, "m 5 3 l 13 8 l 5 13 z f"},
    Drawing{Icon::pause, "r 4 3 3 10 1 r 9 3 3 10 1 f"},
    Drawing{Icon::toStart, "m 12.5 3.5 l 6 8 l 12.5 12.5 z r 3.5 3.5 1.5 9 0.5 f"},
    Drawing{Icon::toEnd, "m 3.5 3.5 l 10 8 l 3.5 12.5 z r 11 3.5 1.5 9 0.5 f"},
    Drawing{Icon::stepBack, "m 9.5 4 l 5.5 8 l 9.5 12"},
    Drawing{Icon::stepForward, "m 6.5 4 l 10.5 8 l 6.5 12"},
    Drawing{Icon::loop, "m 3 8 c 3 5 5 4 7 4 l 12.5 4 m 10.5 2 l 12.5 4 l 10.5 6 m 13 8 c 13 11 11 12 9 12 "
                        "l 3.5 12 m 5.5 10 l 3.5 12 l 5.5 14"},
    Drawing{Icon::volume,
        "m 2.5 6.2 l 5 6.2 l 8 3.5 l 8 12.5 l 5 9.8 l 2.5 9.8 z m 10.5 6 c 11.6 7 11.6 9 10.5 10 "
        "m 12.3 4.2 c 14.4 6 14.4 10 12.3 11.8"},
    Drawing{Icon::muted,
        "m 2.5 6.2 l 5 6.2 l 8 3.5 l 8 12.5 l 5 9.8 l 2.5 9.8 z m 10.5 6.2 l 14 9.8 m 14 6.2 l 10.5 9.8"},
    Drawing{Icon::undo, "m 5.5 3 l 2.5 6 l 5.5 9 m 2.5 6 l 9.5 6 c 14.5 6 14.5 13 9.5 13 l 6.5 13"},
    Drawing{Icon::redo, "m 10.5 3 l 13.5 6 l 10.5 9 m 13.5 6 l 6.5 6 c 1.5 6 1.5 13 6.5 13 l 9.5 13"},
    Drawing{
        Icon::save, "m 8 2.5 l 8 9.5 m 5 6.8 l 8 9.8 l 11 6.8 m 2.5 10.5 l 2.5 13.5 l 13.5 13.5 l 13.5 10.5"},
    Drawing{Icon::open, "m 2 12.5 l 2 3.5 l 6 3.5 l 7.5 5 l 13 5 l 13 7 m 2 12.5 l 4 7 l 15 7 l 13 12.5 z"},
    Drawing{Icon::add, "m 8 3 l 8 13 m 3 8 l 13 8"},
    Drawing{Icon::close, "m 4 4 l 12 12 m 12 4 l 4 12"},
    Drawing{Icon::search, "o 7 7 4.2 m 10.2 10.2 l 13.5 13.5"},
    Drawing{Icon::exportFilm,
        "m 8 10 l 8 2.5 m 5 5.3 l 8 2.3 l 11 5.3 m 2.5 9.5 l 2.5 13.5 l 13.5 13.5 l 13.5 9.5"},
    Drawing{Icon::folder, "m 2 12.5 l 2 3.5 l 6 3.5 l 7.5 5 l 14 5 l 14 12.5 z"},
    Drawing{Icon::warning, "m 8 2.5 l 14.2 13.3 l 1.8 13.3 z m 8 6.5 l 8 9.5 m 8 11.3 l 8 11.4"},
    Drawing{Icon::error, "o 8 8 6 m 8 4.8 l 8 8.6 m 8 11 l 8 11.1"},
    Drawing{Icon::info, "o 8 8 6 m 8 7.4 l 8 11.2 m 8 5 l 8 5.1"},
    Drawing{Icon::check, "m 3.5 8.5 l 6.8 11.8 l 12.8 4.6"},
    Drawing{Icon::text, "m 3 5 l 3 3 l 13 3 l 13 5 m 8 3 l 8 13 m 6 13 l 10 13"},
    Drawing{Icon::device, "r 4.5 1.5 7 13 1.8 m 7.2 12.5 l 8.8 12.5"},
    Drawing{Icon::image, "r 2 3 12 10 1.5 o 5.5 6.3 1 m 2.4 11.5 l 6.3 8.6 l 8.5 10.2 l 11 7.5 l 14 10.3"},
    Drawing{Icon::clip, "r 2 3 12 10 1.5 m 6.5 5.8 l 10.3 8 l 6.5 10.2 z"},
    Drawing{Icon::shape, "r 2 2 8 8 1 o 10.3 10.3 3.7"},
    Drawing{Icon::fill, "r 2.5 2.5 11 11 1.5 m 2.8 9 l 9 2.8 m 5 13 l 13 5 m 9.8 13.2 l 13.2 9.8"},
    Drawing{Icon::zoomIn, "o 7 7 4.2 m 10.2 10.2 l 13.5 13.5 m 7 5 l 7 9 m 5 7 l 9 7"},
    Drawing{Icon::zoomOut, "o 7 7 4.2 m 10.2 10.2 l 13.5 13.5 m 5 7 l 9 7"},
    Drawing{Icon::fit,
        "m 2.5 5.5 l 2.5 2.5 l 5.5 2.5 m 10.5 2.5 l 13.5 2.5 l 13.5 5.5 m 13.5 10.5 l 13.5 13.5 "
        "l 10.5 13.5 m 5.5 13.5 l 2.5 13.5 l 2.5 10.5"},
    Drawing{Icon::guides, "r 2.5 2.5 11 11 1 r 5 5 6 6 0.5"},
    Drawing{Icon::more, "o 3.5 8 1.2 o 8 8 1.2 o 12.5 8 1.2 f"},
    Drawing{Icon::sparkle,
        "m 8 2 c 8.4 6 10 7.6 14 8 c 10 8.4 8.4 10 8 14 c 7.6 10 6 8.4 2 8 c 6 7.6 7.6 6 8 2 z"},
    Drawing{Icon::palette, "r 2 3.5 12 9 1.5 m 4.5 6.5 l 6.5 8 l 4.5 9.5 m 8 10 l 11.5 10"},
    Drawing{Icon::trash,
        "m 2.5 4.5 l 13.5 4.5 m 6 4.3 l 6 2.5 l 10 2.5 l 10 4.3 m 4 4.5 l 4.6 13.5 l 11.4 13.5 l 12 4.5"},
    Drawing{Icon::wrench, "m 13.2 4.2 c 14 6 13 8.6 10.6 8.8 c 9.8 8.9 9.3 8.8 8.7 8.6 l 4.6 12.8 "
                          "c 3.4 14 1.9 12.5 3.1 11.3 l 7.3 7.2 c 6.6 4.8 8.3 2.4 11.6 2.7 l 9.6 4.8 "
                          "l 11.2 6.3 z"},
    Drawing{Icon::braces, "m 6 2.5 c 3.5 2.5 5.5 7.5 2.8 8 c 5.5 8.5 3.5 13.5 6 13.5 "
                          "m 10 2.5 c 12.5 2.5 10.5 7.5 13.2 8 c 10.5 8.5 12.5 13.5 10 13.5"},
    Drawing{Icon::history, "o 8 8 5.6 m 8 4.8 l 8 8.2 l 10.4 9.6"},
    Drawing{Icon::music, "m 6 12 l 6 3.5 l 13 2.5 l 13 11 o 4.3 12 1.7 o 11.3 11 1.7"},
    Drawing{Icon::gallery, "r 2 2 5 5 1 r 9 2 5 5 1 r 2 9 5 5 1 r 9 9 5 5 1"},
};
static_assert(drawings.size() == std::size_t(Icon::gallery) + 1);
constexpr bool isInOrder() {
    for (std::size_t i = 0; i < drawings.size(); ++i)
        if (drawings[i].icon != Icon(i)) return false;
    return true;
}
static_assert(isInOrder());

void paintPath(QPainter& painter, const char* words, const QColor& color) {
    std::istringstream in(words);
    QPainterPath path;
    const auto flush = [&](bool isFilled) {
        painter.setPen(
            isFilled ? QPen(Qt::NoPen) : QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(isFilled ? QBrush(color) : QBrush(Qt::NoBrush));
        painter.drawPath(path);
        path = {};
    };
    double a = 0, b = 0, c = 0, d = 0, e = 0, f = 0;
    for (char step = 0; in >> step;) switch (step) {
        case 'm': in >> a >> b, path.moveTo(a, b); break;
        case 'l': in >> a >> b, path.lineTo(a, b); break;
        case 'c': in >> a >> b >> c >> d >> e >> f, path.cubicTo(a, b, c, d, e, f); break;
        case 'z': path.closeSubpath(); break;
        case 'o': in >> a >> b >> c, path.addEllipse(QPointF(a, b), c, c); break;
        case 'r': in >> a >> b >> c >> d >> e, path.addRoundedRect(QRectF(a, b, c, d), e, e); break;
        default: flush(step == 'f');
        }
    if (!path.isEmpty()) flush(false);
}

class Engine final : public QIconEngine {
public:
    explicit Engine(Icon icon) : icon_(icon) {}
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const Theme& theme = Style::theme();
        drawIcon(*painter, rect, icon_,
            mode == QIcon::Disabled   ? theme.disabled
            : mode == QIcon::Selected ? theme.onAccent
                                      : theme.text);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }
    QIconEngine* clone() const override { return new Engine(icon_); }

private:
    Icon icon_;
};

}   // namespace

void drawIcon(QPainter& painter, const QRectF& rect, Icon icon, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(rect.width(), rect.height());
    painter.translate(rect.center() - QPointF(side / 2, side / 2));
    painter.scale(side / 16, side / 16);
    paintPath(painter, drawings[std::size_t(icon)].path, color);
    painter.restore();
}

QIcon iconOf(Icon icon) { return QIcon(new Engine(icon)); }

}   // namespace tavix::design
