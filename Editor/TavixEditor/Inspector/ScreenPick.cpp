#include "TavixEditor/Inspector/ScreenPick.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWidget>

#include <utility>

namespace tavix::editor {

using namespace design;

namespace {

QColor colorAt(const QPoint& globally) {
    QScreen* const screen = QGuiApplication::screenAt(globally);
    // Our own windows draw themselves, whatever the desktop keeps from programs.
    if (QWidget* const ours = QApplication::topLevelAt(globally)) {
        QPixmap dot(1, 1);
        ours->render(&dot, {}, QRegion(QRect(ours->mapFromGlobal(globally), QSize(1, 1))));
        return dot.toImage().pixelColor(0, 0);
    }
    if (!screen) return {};
    const QPoint at = globally - screen->geometry().topLeft();
    const QImage seen = screen->grabWindow(0, at.x(), at.y(), 1, 1).toImage();
    return seen.isNull() ? QColor() : seen.pixelColor(0, 0);
}

class Lens final : public QWidget {
public:
    Lens(QWidget* parent, std::function<void(const std::optional<QColor>&)> onPick)
        : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput),
          onPick_(std::move(onPick)) {
        setObjectName(QStringLiteral("screenPick"));
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_ShowWithoutActivating);
        resize(44, 44);
        setMouseTracking(true);
        follow(QCursor::pos());
        show();
        grabMouse(Qt::CrossCursor);
        grabKeyboard();
    }
    ~Lens() override { end({}); }

protected:
    void mouseMoveEvent(QMouseEvent* event) override { follow(event->globalPosition().toPoint()); }
    // At the release, so that no window beneath takes it for its own.
    void mouseReleaseEvent(QMouseEvent* event) override {
        follow(event->globalPosition().toPoint());
        finish(event->button() == Qt::LeftButton);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) finish(false);
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) finish(true);
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        drawBox(painter, QRectF(rect()).adjusted(1, 1, -1, -1), radius::card, color_, Qt::white, 2);
    }

private:
    void follow(const QPoint& globally) {
        color_ = colorAt(globally);
        move(globally + QPoint(16, 16));
        update();
    }
    void finish(bool isTaken) {
        end(isTaken && color_.isValid() ? std::optional(color_) : std::nullopt);
        close();
    }
    void end(const std::optional<QColor>& color) {
        if (!onPick_) return;
        releaseMouse();
        releaseKeyboard();
        std::exchange(onPick_, {})(color);
    }

    std::function<void(const std::optional<QColor>&)> onPick_;
    QColor color_;
};

}   // namespace

void pickFromScreen(QWidget* parent, std::function<void(const std::optional<QColor>&)> onPick) {
    new Lens(parent, std::move(onPick));
}

}   // namespace tavix::editor
