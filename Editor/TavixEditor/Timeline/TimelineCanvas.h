// Draws the timeline and takes what hands do to it. What that means is decided in EditorDomain; here it is
// drawn and forwarded.
#pragma once

#include "Editor/EditorDomain/Timeline/TimelineDrag.h"
#include "Editor/EditorDomain/Timeline/TimelineLayout.h"
#include "TavixEditor/App/HeldGesture.h"
#include "TavixEditor/Timeline/TimelinePainter.h"
#include "TavixLive/Observing/Observable.h"

#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tavix::editor {

class TimelineCanvas final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(TimelineCanvas)
public:
    explicit TimelineCanvas(CompositionEditorModel& model, QWidget* parent = nullptr);

    const timeline::Scene& scene() const { return scene_; }
    const timeline::Layout& layout() const { return layout_; }
    double scrollX() const { return scrollX_; }
    int scrollY() const { return scrollY_; }
    int mostScrollY() const;
    int lanesBottom() const;               // in the widget: sounds and keyframes stand below
    double viewY(double contentY) const;   // of what stands in the body or the foot
    QRect rectOf(std::size_t bar) const;   // in the widget
    CompositionEditorModel& model() { return model_; }

    void setZoom(double zoom);   // the playhead stays where it is, or the middle when it is not in sight
    void setScroll(double x, int y);
    void setSnapping(bool isOn) { isSnapping_ = isOn; }
    void setMusic(std::shared_ptr<const Waveform> wave, const std::optional<BeatAnalysis>& heard);
    void activateBar(std::size_t bar);
    // The geometry has changed: scroll bars and labels beside the canvas follow.
    std::function<void()> onView;
    std::function<void(bool hasFocus)> onFocus;

    void addKeyframeAtPlayhead(std::size_t row);
    void seekToMark(std::size_t row, int direction);   // the next one, or the one before

protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void keyReleaseEvent(QKeyEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void leaveEvent(QEvent*) override;
    void changeEvent(QEvent*) override;

private:
    struct Press {
        timeline::Hit hit;
        QPointF at;   // in the content
        Qt::KeyboardModifiers modifiers;
        bool isAcross = false;   // it has gone along the film, not only to another row
    };

    enum class Strip { head, lanes, foot };
    void paintPart(QPainter& painter, const QRect& rect, Strip strip);
    void showDocument();
    void updateScale();
    void movePlayhead();
    QRect playheadRect() const;
    double playheadX() const;
    std::optional<int> rowAt(const QPointF& content) const;
    QPointF contentPoint(const QPointF& inWidget) const;
    timeline::Hit hitAt(const QPointF& inWidget) const;
    void scrub(double contentX);
    void startDrag();
    void pullDrag(const QPointF& content, Qt::KeyboardModifiers modifiers);
    void cancelDrag();
    void click(const Press& press);
    void hover(const QPointF& inWidget);
    void stretchBand(const QPointF& content);
    void clickMark(const Press& press);
    bool handleKey(const QKeyEvent& event, bool isOnlyAsked);
    void deleteSelected();
    void trimToPlayhead(bool isStart);
    void moveSelection(int rows, int alongScene);
    void showBarMenu(const QPoint& globally, std::size_t bar);
    void showBandMenu(const QPoint& globally, std::size_t band);
    void showMarkMenu(const QPoint& globally, const timeline::Drag::MarkPlace& place);
    void editMarks(const QString& name,
        const std::function<void(EditState&, std::size_t track, std::size_t mark)>& edit);
    double frameSec() const;

    CompositionEditorModel& model_;
    timeline::Scene scene_;
    timeline::Layout layout_;
    timeline::Collapsed collapsed_;
    double scrollX_ = 0;
    int scrollY_ = 0;
    double zoom_ = 1;
    double shownSec_ = 0;   // where the playhead is drawn
    bool isSnapping_ = true, isScrubbing_ = false;
    std::optional<Press> press_;
    std::optional<timeline::Drag> drag_;
    std::optional<QRectF> rubberBand_;
    std::vector<timeline::Drag::MarkPlace> marks_;   // selected
    timeline::Hit hover_;
    Selection toldSelection_;   // to screen readers
    HeldGesture nudging_;
    TimelinePainter painter_;
    Connections connections_;
};

}   // namespace tavix::editor
