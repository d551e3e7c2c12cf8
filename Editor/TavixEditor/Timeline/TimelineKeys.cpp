// What keys and menus do to the timeline.
#include "TavixEditor/Timeline/TimelineCanvas.h"

#include "Editor/EditorDomain/Timeline/EasePreset.h"
#include "Editor/EditorDomain/Timeline/TimelineCommands.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/Inspector/EasePopup.h"
#include "TavixEditor/Timeline/SelectionClipboard.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Operations/DeviceKeyframes.h"
#include "TavixLive/Operations/DeviceOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace timeline;

namespace {

constexpr double zoomStep = 1.25;
constexpr int framesOfLargeStep = 10;

}   // namespace

bool TimelineCanvas::event(QEvent* event) {
    // Keys of the timeline are its own before they are shortcuts of the window.
    if (event->type() == QEvent::ShortcutOverride && handleKey(*static_cast<QKeyEvent*>(event), true)) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void TimelineCanvas::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(*event, false)) QWidget::keyPressEvent(event);
}

void TimelineCanvas::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) nudging_.letGo();
    QWidget::keyReleaseEvent(event);
}

bool TimelineCanvas::handleKey(const QKeyEvent& event, bool isOnlyAsked) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier, isAlt = modifiers == Qt::AltModifier;
    const bool isControl = modifiers == Qt::ControlModifier, isShift = modifiers == Qt::ShiftModifier;
    const auto does = [&](const auto& work) {
        if (!isOnlyAsked) work();
        return true;
    };
    const auto step = [&](const QString& name, const std::function<void(EditState&)>& change) {
        return does([&] { model_.update(name.toStdString(), change); });
    };
    if (event.matches(QKeySequence::Copy)) return does([&] { copySelection(model_); });
    if (event.matches(QKeySequence::Cut)) return does([&] { cutSelection(model_); });
    if (event.matches(QKeySequence::Paste)) return does([&] { pasteAtPlayhead(model_); });
    if (event.matches(QKeySequence::SelectAll)) return step({}, selectAllLayers);
    switch (event.key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace: return isPlain && does([&] { deleteSelected(); });
    case Qt::Key_D: return isControl && step(tr("Duplicate"), duplicateSelection);
    case Qt::Key_S:
        return isPlain && step(tr("Split Layer"),
                              [&](EditState& state) { splitSelection(state, model_.state.currentTime()); });
    case Qt::Key_K:
        return isPlain && does([&] {
            for (std::size_t row = 0; row < scene_.keyframeRows.size(); ++row) addKeyframeAtPlayhead(row);
            if (scene_.keyframeRows.empty())
                model_.state.statusMessage =
                    tr("Select a layer, and choose what to animate in its menu.").toStdString();
        });
    case Qt::Key_BracketLeft: return isPlain && does([&] { trimToPlayhead(true); });
    case Qt::Key_BracketRight: return isPlain && does([&] { trimToPlayhead(false); });
    case Qt::Key_Escape:
        return isPlain && (press_ || model_.state.edited().selection.scene) &&
               does([&] { press_ ? cancelDrag() : model_.clearSelection(); });
    case Qt::Key_Plus:
    case Qt::Key_Equal: return !isAlt && !isControl && does([&] { setZoom(zoom_ * zoomStep); });
    case Qt::Key_Minus: return isPlain && does([&] { setZoom(zoom_ / zoomStep); });
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int sign = event.key() == Qt::Key_Left ? -1 : 1;
        const double by = sign * frameSec() * (isShift ? framesOfLargeStep : 1);
        if (isAlt)
            return does([&] {
                nudging_.press(tr("Nudge").toStdString());
                model_.update(
                    tr("Nudge").toStdString(), [&](EditState& state) { nudgeSelection(state, by); });
            });
        if (isControl) return does([&] { moveSelection(0, sign); });
        return (isPlain || isShift) && does([&] {
            model_.seek(model_.state.currentTime() + by);
            setScroll(scrolledToShow(layout_.scale, scrollX_, model_.state.currentTime(), 24), scrollY_);
        });
    }
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int up = event.key() == Qt::Key_Up ? 1 : -1;
        if (isControl)
            return step(up > 0 ? tr("Bring Forward") : tr("Send Backward"),
                [&](EditState& state) { restackSelection(state, up); });
        return isPlain && does([&] { moveSelection(up, 0); });
    }
    default: return false;
    }
}

// To the layer above or below, or to the scene before or after.
void TimelineCanvas::moveSelection(int rows, int alongScene) {
    const Selection& selected = model_.state.edited().selection;
    const auto& scenes = model_.state.edited().spec.scenes;
    if (scenes.empty()) return;
    const auto scene = selected.scene.value_or(0);
    if (alongScene != 0) {
        const auto to = std::clamp<std::ptrdiff_t>(
            std::ptrdiff_t(scene) + alongScene, 0, std::ptrdiff_t(scenes.size()) - 1);
        return model_.selectScene(std::size_t(to), true);
    }
    const auto last = std::ptrdiff_t(scenes[scene].layers.size()) - 1;
    if (last < 0) return model_.selectScene(scene, false);
    const auto from = selected.layer ? std::ptrdiff_t(*selected.layer) : (rows > 0 ? -1 : last + 1);
    model_.selectLayer(scene, std::size_t(std::clamp<std::ptrdiff_t>(from + rows, 0, last)));
}

void TimelineCanvas::activateBar(std::size_t bar) {
    const LayerPlace place = scene_.bars[bar].place;
    model_.selectLayer(place.scene, place.layer);
}

void TimelineCanvas::trimToPlayhead(bool isStart) {
    model_.update(tr("Trim Layer").toStdString(), [&](EditState& state) {
        for (const LayerPlace& place : state.selection.layers()) {
            const double sec = model_.state.currentTime() - scene_.bands[place.scene].startSec;
            const auto trim = isStart ? LayerOperations::setLayerStart : LayerOperations::setLayerEnd;
            trim(state, place.scene, place.layer, sec);
        }
    });
}

void TimelineCanvas::deleteSelected() {
    if (!marks_.empty() && scene_.layer) {
        auto sorted = marks_;
        editMarks(tr("Delete Keyframe"), {});
        return;
    }
    const bool hasLayer = model_.state.edited().selection.layer.has_value();
    model_.update((hasLayer ? tr("Delete Layer") : tr("Delete Scene")).toStdString(), deleteSelection);
}

// Does something to every selected keyframe of a track, the last one first; without a function it removes
// them, of the device, too.
void TimelineCanvas::editMarks(
    const QString& name, const std::function<void(EditState&, std::size_t, std::size_t)>& edit) {
    if (!scene_.layer) return;
    std::vector<Drag::MarkPlace> places = marks_;
    std::ranges::sort(places, std::greater());
    const LayerPlace layer = *scene_.layer;
    const std::vector<KeyframeRow> rows = scene_.keyframeRows;
    model_.update(name.toStdString(), [&](EditState& state) {
        for (const Drag::MarkPlace& place : places) {
            if (place.row >= rows.size() || place.mark >= rows[place.row].marks.size()) continue;
            const KeyframeRow& row = rows[place.row];
            if (edit && row.track) edit(state, *row.track, place.mark);
            if (edit) continue;
            if (row.track)
                TrackOperations::removeKeyframe(state, {layer.scene, layer.layer, *row.track}, place.mark);
            else if (auto* device = state.content<DeviceContent>(layer.scene, layer.layer))
                DeviceKeyframes::removeUnifiedKeyframe(*device, row.marks[place.mark].sec);
        }
    });
    if (!edit) marks_.clear();
}

void TimelineCanvas::addKeyframeAtPlayhead(std::size_t row) {
    if (!scene_.layer || row >= scene_.keyframeRows.size()) return;
    const LayerPlace layer = *scene_.layer;
    const double sec = std::max(model_.state.currentTime() - scene_.layerStartSec, 0.0);
    const auto track = scene_.keyframeRows[row].track;
    model_.update(tr("Add Keyframe").toStdString(), [&](EditState& state) {
        if (track) return TrackOperations::addKeyframe(state, {layer.scene, layer.layer, *track}, sec);
        if (auto* device = state.content<DeviceContent>(layer.scene, layer.layer))
            DeviceKeyframes::upsertUnifiedKeyframe(
                *device, sec, DeviceKeyframes::unifiedState(*device, state.spec.output, sec));
    });
}

void TimelineCanvas::seekToMark(std::size_t row, int direction) {
    constexpr double here = 0.001;
    if (row >= scene_.keyframeRows.size()) return;
    std::optional<double> best;
    for (const auto& mark : scene_.keyframeRows[row].marks) {
        const double sec = scene_.layerStartSec + mark.sec,
                     ahead = (sec - model_.state.currentTime()) * direction;
        if (ahead > here && (!best || ahead < (*best - model_.state.currentTime()) * direction)) best = sec;
    }
    if (best) model_.seek(*best);
}

void TimelineCanvas::contextMenuEvent(QContextMenuEvent* event) {
    Hit hit = event->reason() == QContextMenuEvent::Mouse ? hitAt(event->pos()) : Hit{};
    QPoint globally = event->globalPos();
    if (event->reason() != QContextMenuEvent::Mouse)   // by key: of what is selected
        for (std::size_t i = 0; i < scene_.bars.size(); ++i)
            if (scene_.bars[i].isSelected) {
                hit = {Part::barBody, i, 0};
                globally = mapToGlobal(rectOf(i).center());
            }
    switch (hit.part) {
    case Part::barBody:
    case Part::barStart:
    case Part::barEnd:
        if (!scene_.bars[hit.index].isSelected) {
            const LayerPlace place = scene_.bars[hit.index].place;
            model_.selectLayer(place.scene, place.layer);
        }
        return showBarMenu(globally, hit.index);
    case Part::bandBody:
    case Part::bandEnd:
    case Part::chevron:
    case Part::transition:
    case Part::transitionStart: return showBandMenu(globally, hit.index);
    case Part::keyframe:
        if (std::ranges::find(marks_, Drag::MarkPlace{hit.index, hit.mark}) == marks_.end())
            marks_ = {{hit.index, hit.mark}};
        update();
        return showMarkMenu(globally, {hit.index, hit.mark});
    default: return;
    }
}

void TimelineCanvas::showBarMenu(const QPoint& globally, std::size_t) {
    QMenu menu(this);
    const auto add = [&](const QString& words, const QString& key,
                         const std::function<void(EditState&)>& change) {
        menu.addAction(words + (key.isEmpty() ? key : QLatin1Char('\t') + key), this,
            [=, this] { model_.update(words.toStdString(), change); });
    };
    add(tr("Extend to Scene End"), {}, extendToSceneEnd);
    add(tr("Split Layer"), QStringLiteral("S"),
        [this](EditState& state) { splitSelection(state, model_.state.currentTime()); });
    menu.addSeparator();
    add(tr("Bring Forward"), QStringLiteral("Ctrl+↑"), [](EditState& state) { restackSelection(state, 1); });
    add(tr("Send Backward"), QStringLiteral("Ctrl+↓"), [](EditState& state) { restackSelection(state, -1); });
    menu.addSeparator();
    QMenu* const tracks = menu.addMenu(tr("Animate"));
    if (const auto layer = scene_.layer) {
        for (const auto property : {AnimProperty::opacity, AnimProperty::x, AnimProperty::y,
                 AnimProperty::scale, AnimProperty::scaleX, AnimProperty::scaleY, AnimProperty::rotationDeg,
                 AnimProperty::skewXDeg, AnimProperty::skewYDeg, AnimProperty::blur}) {
            if (!TrackOperations::canAddTrack(
                    model_.state.edited().spec, layer->scene, layer->layer, property))
                continue;
            const QString words = documentLabel(propertyLabel(property));
            tracks->addAction(words, this, [=, this] {
                model_.update(tr("Animate %1").arg(words).toStdString(), [&](EditState& state) {
                    TrackOperations::addTrack(state, layer->scene, layer->layer, property);
                });
            });
        }
    }
    tracks->setEnabled(!tracks->isEmpty());
    menu.addSeparator();
    menu.addAction(tr("Copy") + QStringLiteral("\tCtrl+C"), this, [this] { copySelection(model_); });
    add(tr("Duplicate"), QStringLiteral("Ctrl+D"), duplicateSelection);
    add(tr("Delete Layer"), QStringLiteral("Del"), deleteSelection);
    menu.exec(globally);
}

void TimelineCanvas::showBandMenu(const QPoint& globally, std::size_t band) {
    model_.selectScene(band, false);
    QMenu menu(this);
    const auto add = [&](const QString& words, const std::function<void(EditState&)>& change) {
        return menu.addAction(words, this, [=, this] { model_.update(words.toStdString(), change); });
    };
    menu.addAction(tr("Paste") + QStringLiteral("\tCtrl+V"), this, [this] { pasteAtPlayhead(model_); });
    add(tr("Duplicate Scene"), [=](EditState& state) { SceneOperations::duplicateScene(state, band); });
    add(tr("Move Earlier"), [=](EditState& state) {
        if (band > 0) SceneOperations::moveScene(state, band, band - 1);
    })->setEnabled(band > 0);
    add(tr("Move Later"), [=](EditState& state) {
        SceneOperations::moveScene(state, band, band + 1);
    })->setEnabled(band + 1 < scene_.bands.size());
    menu.addSeparator();
    if (band + 1 < scene_.bands.size()) {
        if (scene_.bands[band].transitionSec > 0)
            add(tr("Cut without Transition"),
                [=](EditState& state) { state.spec.scenes[band].transition.reset(); });
        else
            add(tr("Fade into the Next Scene"), [=](EditState& state) {
                state.spec.scenes[band].transition.emplace();
                setTransitionDuration(state, band, 0.5);
            });
        menu.addSeparator();
    }
    add(tr("Delete Scene"), [=](EditState& state) {
        SceneOperations::removeScene(state, band);
    })->setEnabled(scene_.bands.size() > 1);
    menu.exec(globally);
}

void TimelineCanvas::showMarkMenu(const QPoint& globally, const Drag::MarkPlace& place) {
    QMenu menu(this);
    const KeyframeRow& row = scene_.keyframeRows[place.row];
    if (row.track && scene_.layer) {
        const TimingCurve now = row.marks[place.mark].ease.value_or(LinearCurve{});
        const LayerPlace layer = *scene_.layer;
        const auto setEase = [this, layer](const TimingCurve& ease) {
            editMarks(tr("Change Ease"), [=](EditState& state, std::size_t track, std::size_t mark) {
                TrackOperations::setKeyframeEase(state, {layer.scene, layer.layer, track}, mark, ease);
            });
        };
        for (const EasePreset& preset : EasePreset::named()) {
            QAction* const action =
                menu.addAction(QString::fromUtf8(preset.label.data(), qsizetype(preset.label.size())), this,
                    [=] { setEase(preset.curve); });
            action->setCheckable(true);
            action->setChecked(preset.curve == now);
        }
        menu.addAction(tr("Spring"), this, [=] { setEase(SpringCurve{}); });
        menu.addAction(tr("Edit Curve…"), this, [=, this] {
            showEasePopup(this, globally, now, [=, this](const TimingCurve& ease, bool isEditing) {
                model_.beginGesture(tr("Change Ease").toStdString());
                setEase(ease);
                if (!isEditing) model_.endGesture();
            });
        });
        menu.addSeparator();
    }
    menu.addAction(tr("Delete Keyframe") + QStringLiteral("\tDel"), this, [this] { deleteSelected(); });
    menu.exec(globally);
}

}   // namespace tavix::editor
