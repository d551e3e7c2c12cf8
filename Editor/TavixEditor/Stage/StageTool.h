// Takes hold of layers on the stage: selects, moves, scales and turns them, and draws what it does.
#pragma once

#include "Editor/EditorDomain/Stage/StageEdits.h"
#include "Editor/EditorDomain/Stage/StageMap.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixPlatform/System/Continuation.h"

#include <QCoreApplication>
#include <QPointF>
#include <QRectF>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QPainter;

namespace tavix {
class CompositionEditorModel;
class StageViewport;
}   // namespace tavix

namespace tavix::editor {

class Studio;

class StageTool {
    Q_DECLARE_TR_FUNCTIONS(StageTool)
public:
    StageTool(Studio& studio, const StageViewport& viewport);
    ~StageTool();

    std::function<void()> onChange;   // something is to be drawn anew

    // Points are of the view.
    void press(QPointF at);
    void drag(QPointF to, Qt::KeyboardModifiers keys);
    void release();
    void hover(QPointF at);
    void leave();
    bool isDragging() const { return drag_.has_value(); }
    void cancel();   // the layer is as it was

    void nudge(double dxPx, double dyPx);
    std::optional<StageLayer> selected() const;   // where it stands now
    std::optional<StageLayer> layerUnder(QPointF at) const;
    std::optional<StageLayer> deviceUnder(QPointF at) const;
    std::vector<StageLayer> layers() const;   // that are seen now, from back to front
    QRectF inView(const PixelRect& box) const;
    Qt::CursorShape cursorAt(QPointF at) const;
    QString hoverText() const;
    void paint(QPainter& painter) const;

private:
    enum class Kind { move, grow, turn };
    struct Drag {
        Kind kind;
        StageHandle handle;
        StageLayer layer;   // as the drag began
        QPointF from;       // in the view
        CompositionLayer before;
        PixelRect box;   // as it is now
        std::vector<StageGuide> guides = {};
        bool hasMoved = false;
    };
    struct Grip {
        Kind kind;
        StageHandle handle;
    };

    void mapDocument();
    bool hasSelection() const;
    std::optional<Grip> gripAt(QPointF at) const;
    void dragDevice(QPointF to, Qt::KeyboardModifiers keys);
    void dragLayer(QPointF to, Qt::KeyboardModifiers keys);
    void change(const std::function<void(CompositionLayer&)>& mutate);
    QPointF turnHandle(const QRectF& box) const;

    Studio& studio_;
    CompositionEditorModel& model_;
    const StageViewport& viewport_;
    std::shared_ptr<const StageMap> map_;   // of the latest document that was mapped
    bool isMapping_ = false, isStale_ = false;
    std::optional<StageLayer> hovered_;
    std::optional<Drag> drag_;
    Connections connections_;
    system::Lifeline lifeline_;
};

}   // namespace tavix::editor
