#include "TavixEditor/Panels/WrittenPlace.h"

#include "Editor/EditorDomain/Inspector/InspectorRows.h"
#include "Editor/EditorDomain/Timeline/TimelineScene.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/App/Words.h"
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <QCoreApplication>

#include <algorithm>

namespace tavix::editor {

WrittenPlace placeOf(const JsonPointer& at, const CompositionSpec& spec) {
    WrittenPlace place;
    const std::vector<std::string>& tokens = at.tokens();
    std::size_t used = 0;
    if (tokens.size() >= 2 && tokens[0] == "scenes")
        if (const auto scene = indexIn(tokens[1]); scene && *scene < spec.scenes.size()) {
            place.scene = scene;
            used = 2;
        }
    if (place.scene && tokens.size() >= 4 && tokens[2] == "layers")
        if (const auto written = indexIn(tokens[3])) {
            const auto& layers = spec.scenes[*place.scene].layers;
            const auto made = std::ranges::find_if(
                layers, [&](const CompositionLayer& layer) { return layer.origin.writtenAs == written; });
            if (made != layers.end()) place.layer = std::size_t(made - layers.begin());
            used = 4;
        }
    for (std::size_t i = tokens.size(); i > used && place.key.empty(); --i)
        if (!indexIn(tokens[i - 1])) place.key = tokens[i - 1];
    return place;
}

namespace {

// By its own words where it has some; the name of its kind is told in the language of the interface.
std::string nameOf(const CompositionLayer& layer) {
    if (timeline::isLabelledByKind(layer)) return utf8Of(documentLabel(timeline::barLabel(layer)));
    return FilmJudge::nameOf(layer);
}

}   // namespace

std::string wordsOf(const WrittenPlace& place, const CompositionSpec& spec) {
    std::string text = place.scene ? spec.scenes[*place.scene].displayName(*place.scene)
                                   : utf8Of(QCoreApplication::translate("WrittenPlace", "The film"));
    if (place.layer) text += " · " + nameOf(spec.scenes[*place.scene].layers[*place.layer]);
    if (!place.key.empty()) text += " · " + utf8Of(documentLabel(labelOfKey(place.key)));
    return text;
}

void goTo(CompositionEditorModel& model, const WrittenPlace& place) {
    const CompositionSpec& spec = model.state.edited().spec;
    if (!place.scene || *place.scene >= spec.scenes.size()) return model.clearSelection();
    if (place.layer && *place.layer < spec.scenes[*place.scene].layers.size())
        return model.selectLayer(*place.scene, *place.layer);
    const double sinceSec = model.state.currentTime() - CompositionTimeline(spec).startSec[*place.scene];
    model.selectScene(*place.scene, sinceSec < 0 || sinceSec >= spec.scenes[*place.scene].durationSec);
}

}   // namespace tavix::editor
