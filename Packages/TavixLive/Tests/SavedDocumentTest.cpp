#include "TavixLive/Saving/SavedDocument.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Saving/DocumentOnDisk.h"
#include "TestSupport/SourceTree.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace tavix {
namespace {

struct Opened {
    Json written;
    CompositionSpec base;
    SavingRoad road;
};

Opened opened(const Json& written, const std::optional<std::filesystem::path>& assetRoot = {}) {
    return {written, CompositionRoad::resolve(decodeValue<CompositionSpec>(written), assetRoot).spec,
        {assetRoot}};
}

std::vector<Opened> examples() {
    std::vector<Opened> all;
    for (const auto& entry : std::filesystem::directory_iterator(testsupport::inSourceTree("Examples")))
        if (CompositionProjectBundle::isBundle(entry.path()))
            all.push_back(
                opened(parseJson(readBytes(CompositionProjectBundle::specFile(entry.path()))), entry.path()));
    return all;
}

Json saved(const Opened& document, const CompositionSpec& current) {
    return savedDocument(document.written, document.base, current, document.road);
}

CompositionSpec readAgain(const Opened& document, const Json& json) {
    return opened(json, document.road.assetRoot).base;
}

TEST(SavedDocument, IsWhatWasWrittenWhereNothingChanged) {
    for (const Opened& example : examples()) EXPECT_EQ(saved(example, example.base), example.written);
}

// Whatever is edited, what is saved reads as the document that was edited.
TEST(SavedDocument, ReadsAsTheDocumentThatWasSaved) {
    std::mt19937 random(6);
    for (const Opened& example : examples())
        for (int round = 0; round < 12; ++round) {
            EditState state{example.base, {}};
            for (int edits = 0; edits <= round % 3; ++edits) {
                const std::size_t scene = random() % state.spec.scenes.size();
                const std::size_t layer =
                    random() % std::max<std::size_t>(state.spec.scenes[scene].layers.size(), 1);
                switch (random() % 7) {
                case 0: SceneOperations::addScene(state); break;
                case 1: SceneOperations::moveScene(state, scene, 0); break;
                case 2: LayerOperations::deleteLayer(state, scene, layer); break;
                case 3: LayerOperations::addLayer(state, scene, ContentKind::text); break;
                case 4: LayerOperations::reorderLayer(state, scene, layer, 0); break;
                case 5: LayerOperations::setLayerStart(state, scene, layer, 0.25); break;
                default:
                    if (auto* touched = state.layer(scene, layer)) touched->opacity = 0.5;
                }
            }
            EXPECT_EQ(readAgain(example, saved(example, state.spec)), state.spec) << round;
        }
}

const char* const namedFilm = R"({"output": {"widthPx": 1080, "heightPx": 1920, "fps": 30}, "note": "mine",
  "audio": {"music": {"path": "song.mp3", "bpm": 120}},
  "scenes": [{"durationBeats": 8, "extra": [1, 2], "layers": [
    {"kind": "text", "position": {"x": 540, "y": 300}, "fromBeat": 2, "toBeat": 6, "text": {"text": "Hello"}},
    {"kind": "device", "position": {"x": 540, "y": 960}, "device": {"screen": {"kind": "still", "path": "a.png"},
      "motionPreset": {"preset": "rise-up"}}},
    {"kind": "device", "position": {"x": 540, "y": 960}, "device": {"screen": {"kind": "still", "path": "b.png"},
      "choreographyPreset": {"preset": "splitFocus"}}}]}]})";

TEST(SavedDocument, ChangesOnlyWhatTheEditTouched) {
    const Opened film = opened(parseJson(namedFilm));
    ASSERT_GT(film.base.scenes[0].layers.size(), 3u) << "the formation has come out of its name";
    const auto changesOf = [&](auto edit) {
        EditState state{film.base, {}};
        edit(state);
        const Json json = saved(film, state.spec);
        EXPECT_EQ(readAgain(film, json), state.spec);
        std::vector<std::string> changes;
        for (const PatchOperation& operation : diff(film.written, json))
            changes.push_back(operation.path.text());
        return changes;
    };
    using Changes = std::vector<std::string>;
    EXPECT_EQ(changesOf([](EditState& state) {
        state.content<TextContent>(0, 0)->color = RGBAColor{1, 0, 0, 1};
    }),
        Changes{"/scenes/0/layers/0/text/color"});
    EXPECT_EQ(changesOf([](EditState& state) { state.spec.seed = 9; }), Changes{"/seed"});
    // A layer that was moved by hand stands where it was put, and the rest of the film on its beats.
    const Changes start = changesOf([](EditState& state) { state.layer(0, 0)->fromSec = 1.25; });
    for (const std::string& path : start) EXPECT_TRUE(path.starts_with("/scenes/0/layers/0")) << path;
    // A device that was touched is written with its keyframes; the formation stays a name.
    const Changes faded = changesOf([](EditState& state) { state.layer(0, 1)->opacity = 0.5; });
    for (const std::string& path : faded) EXPECT_TRUE(path.starts_with("/scenes/0/layers/1")) << path;
}

// In the file itself: bytes that the edit did not touch stay, spaces and order included.
TEST(SavedDocument, LeavesTheOtherBytesOfTheFile) {
    const testsupport::TemporaryFolder folder;
    const auto bundle = folder.path() / "film.tavixcomp";
    std::filesystem::create_directory(bundle);
    const auto file = CompositionProjectBundle::specFile(bundle);
    writeBytesAtomically(namedFilm, file);
    const DocumentOnDisk before = DocumentOnDisk::read(bundle);
    EditState state{before.spec, {}};
    state.content<TextContent>(0, 0)->text = "Good bye";
    const DocumentOnDisk after = before.saved(state.spec, bundle, DocumentOnDisk::IfChanged::refuse);
    std::string wanted = namedFilm;
    wanted.replace(wanted.find("\"Hello\""), 7, "\"Good bye\"");
    EXPECT_EQ(readBytes(file), wanted);
    EXPECT_EQ(after.text, wanted);
    EXPECT_EQ(after.spec, state.spec);
    // And back again, from what stands there now.
    after.saved(before.spec, bundle, DocumentOnDisk::IfChanged::refuse);
    EXPECT_EQ(readBytes(file), namedFilm);
}

// Beats survive a cut: on a beat both parts are told in beats, elsewhere all but the place of the cut.
TEST(SavedDocument, KeepsTheBeatsOfALayerThatIsCut) {
    for (const double bpm : {120.0, 100.0, 96.0}) {
        const auto cutAt = [&](double cutSec) {
            std::string text = namedFilm;
            text.replace(text.find("\"bpm\": 120"), 10, "\"bpm\": " + std::to_string(int(bpm)));
            const Opened film = opened(parseJson(text));
            EditState state{film.base, {}};
            LayerOperations::duplicateLayer(state, 0, 0);
            LayerOperations::setLayerEnd(state, 0, 0, cutSec);
            LayerOperations::setLayerStart(state, 0, 1, cutSec);
            const Json json = saved(film, state.spec);
            EXPECT_EQ(readAgain(film, json), state.spec);
            const Json& layers = *json.find("scenes")->array()->at(0).find("layers");
            return std::pair((*layers.array())[0], (*layers.array())[1]);
        };
        const auto number = [](const Json& layer, const char* key) {
            const Json* found = layer.find(key);
            return found ? found->doubleValue() : std::nullopt;
        };
        const auto [first, second] = cutAt(4 * 60 / bpm);
        EXPECT_EQ(number(first, "fromBeat"), 2) << bpm;
        EXPECT_EQ(number(first, "toBeat"), 4) << bpm;
        EXPECT_EQ(number(second, "fromBeat"), 4) << bpm;
        EXPECT_EQ(number(second, "toBeat"), 6) << bpm;
        EXPECT_FALSE(second.find("fromSec") || second.find("durationSec"));
        const auto [before, after] = cutAt(4.1 * 60 / bpm);
        EXPECT_EQ(number(before, "fromBeat"), 2) << bpm;
        EXPECT_FALSE(before.find("toBeat"));
        EXPECT_TRUE(after.find("fromSec"));
        EXPECT_EQ(number(after, "toBeat"), 6) << bpm;
    }
}

// Who counts in seconds gets no beats, wherever a layer may stand.
TEST(SavedDocument, TellsNoBeatsToWhoCountsInSeconds) {
    std::string text = namedFilm;
    for (const char* key : {"\"durationBeats\": 8", "\"fromBeat\": 2", "\"toBeat\": 6"}) {
        const std::string sec = std::string(key).find("Beats") != std::string::npos ? "\"durationSec\": 4"
                                : key[1] == 'f'                                     ? "\"fromSec\": 1"
                                                                                    : "\"durationSec\": 2";
        text.replace(text.find(key), std::string(key).size(), sec);
    }
    const Opened film = opened(parseJson(text));
    EditState state{film.base, {}};
    LayerOperations::duplicateLayer(state, 0, 0);
    LayerOperations::setLayerEnd(state, 0, 0, 2);
    LayerOperations::setLayerStart(state, 0, 1, 2);
    EXPECT_EQ(writeJson(saved(film, state.spec)).find("Beat"), std::string::npos);
}

}   // namespace
}   // namespace tavix
