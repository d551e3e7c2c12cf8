#include "TavixEditor/Timeline/TimelineAccessibility.h"

#include "TavixEditor/App/AccessibleParts.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Timeline/TimelineCanvas.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tavix::editor {

using namespace timeline;

namespace {

using Parts = std::vector<AccessiblePart>;

struct TimelineWords {
    Q_DECLARE_TR_FUNCTIONS(Timeline)
};
QString seconds(double sec) { return QString::number(sec, 'f', 1); }

// Bars stand in the order of the document: which one is drawn last changes with the selection.
std::vector<std::size_t> inOrder(const std::vector<Bar>& bars) {
    std::vector<std::size_t> order(bars.size());
    std::iota(order.begin(), order.end(), 0u);
    std::ranges::sort(order, {}, [&](std::size_t i) { return bars[i].place; });
    return order;
}

QRect rectAround(const TimelineCanvas& canvas, double contentX, double contentY, int width, int height) {
    return {int(std::lround(contentX - canvas.scrollX() - width / 2.0)), int(canvas.viewY(contentY)), width,
        height};
}

void addPlayhead(Parts& parts, TimelineCanvas& canvas) {
    CompositionEditorModel& model = canvas.model();
    AccessiblePart part;
    part.role = QAccessible::Slider;
    part.name = TimelineWords::tr("Playhead");
    part.about = TimelineWords::tr("%1 of %2 seconds")
                     .arg(model.state.currentTime(), 0, 'f', 2)
                     .arg(canvas.scene().totalSec, 0, 'f', 2);
    part.box = QRect(0, 0, canvas.width(), Layout::rulerHeight);
    part.value = AccessiblePart::Value{
        model.state.currentTime(), canvas.scene().totalSec, [&model](double sec) { model.seek(sec); }};
    parts.push_back(std::move(part));
}

void addBands(Parts& parts, TimelineCanvas& canvas) {
    const Scene& scene = canvas.scene();
    for (std::size_t i = 0; i < scene.bands.size(); ++i) {
        const Band& band = scene.bands[i];
        const Box box = canvas.layout().bandBox(band);
        AccessiblePart part;
        part.name = TimelineWords::tr("Scene %1").arg(words(band.name));
        part.about =
            band.transitionSec > 0
                ? TimelineWords::tr("%1 to %2 seconds, a transition of %3 seconds into the next")
                      .arg(seconds(band.startSec), seconds(band.endSec),
                          QString::number(band.transitionSec, 'f', 2))
                : TimelineWords::tr("%1 to %2 seconds").arg(seconds(band.startSec), seconds(band.endSec));
        part.box = QRectF(box.x - canvas.scrollX(), box.y, box.width, box.height).toAlignedRect();
        part.isSelected = band.isSelected && !canvas.model().state.edited().selection.layer;
        part.press = [&canvas, i] { canvas.model().selectScene(i, true); };
        parts.push_back(std::move(part));
    }
}

void addBars(Parts& parts, TimelineCanvas& canvas) {
    const Scene& scene = canvas.scene();
    for (const std::size_t i : inOrder(scene.bars)) {
        const Bar& bar = scene.bars[i];
        AccessiblePart part;
        part.name = barWords(bar.label, bar.isLabelledByKind);
        part.about = TimelineWords::tr("%1 to %2 seconds, %3 keyframes")
                         .arg(seconds(bar.startSec), seconds(bar.endSec))
                         .arg(bar.keyframesSec.size());
        part.box = canvas.rectOf(i);
        part.isSelected = bar.isSelected;
        part.press = [&canvas, i] { canvas.activateBar(i); };
        parts.push_back(std::move(part));
    }
}

void addMarks(Parts& parts, TimelineCanvas& canvas) {
    const Scene& scene = canvas.scene();
    for (std::size_t row = 0; row < scene.keyframeRows.size(); ++row)
        for (const KeyframeRow::Mark& mark : scene.keyframeRows[row].marks) {
            AccessiblePart part;
            part.role = QAccessible::PushButton;
            const double sec = scene.layerStartSec + mark.sec;
            part.name = TimelineWords::tr("Keyframe of %1 at %2 seconds")
                            .arg(documentLabel(scene.keyframeRows[row].label))
                            .arg(sec, 0, 'f', 2);
            part.box = rectAround(canvas, canvas.layout().markX(scene, mark),
                canvas.layout().keyframeRowTop(scene, row), 11, Layout::rowHeight);
            part.press = [&canvas, sec] { canvas.model().seek(sec); };
            parts.push_back(std::move(part));
        }
}

void addCues(Parts& parts, TimelineCanvas& canvas) {
    const Scene& scene = canvas.scene();
    for (const Cue& cue : scene.cues) {
        AccessiblePart part;
        part.role = QAccessible::PushButton;
        part.name = TimelineWords::tr("Sound %1 at %2 seconds").arg(words(cue.name)).arg(cue.sec, 0, 'f', 2);
        part.box = rectAround(
            canvas, canvas.layout().cueX(cue), canvas.layout().soundTop(scene), 10, Layout::cueHeight);
        part.press = [&canvas, sec = cue.sec] { canvas.model().seek(sec); };
        parts.push_back(std::move(part));
    }
}

}   // namespace

void tellTimeline(TimelineCanvas* canvas) {
    tellParts(canvas, QAccessible::List, [canvas] {
        Parts parts;
        addPlayhead(parts, *canvas);
        addBands(parts, *canvas);
        addBars(parts, *canvas);
        addMarks(parts, *canvas);
        addCues(parts, *canvas);
        return parts;
    });
}

}   // namespace tavix::editor
