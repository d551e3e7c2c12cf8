#include "TavixEditor/Inspector/Popup.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QFrame>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace tavix::editor {

using namespace design;

namespace {

class Popup final : public QFrame {
public:
    explicit Popup(QWidget* parent) : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint) {
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_TranslucentBackground);
    }

protected:
    void resizeEvent(QResizeEvent*) override { setMask(boxRegion(rect(), radius::popover)); }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawBox(painter, rect(), radius::popover, palette().color(QPalette::Window), Style::theme().hairline);
    }
};

}   // namespace

QFrame* makePopup(QWidget* parent, int width) {
    auto* popup = new Popup(parent);
    popup->setFixedWidth(width);
    auto* column = new QVBoxLayout(popup);
    column->setContentsMargins(space::medium, space::medium, space::medium, space::medium);
    column->setSpacing(space::small);
    return popup;
}

void showPopup(QWidget* popup, const QPoint& globally) {
    popup->adjustSize();
    const QRect room = popup->parentWidget()->screen()->availableGeometry();
    QPoint at = globally;
    if (at.y() + popup->height() > room.bottom()) at.ry() -= popup->height();
    at.rx() = std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - popup->width()));
    at.ry() = std::max(at.y(), room.top());
    popup->move(at);
    popup->show();
}

}   // namespace tavix::editor
