// The rows of the inspector, and what its controls write.
#include "Editor/EditorDomain/Inspector/ContentSizes.h"
#include "Editor/EditorDomain/Inspector/DocumentWords.h"
#include "Editor/EditorDomain/Inspector/InspectorEdit.h"
#include "Editor/EditorDomain/Inspector/Themes.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tavix {
namespace {

using Control = InspectorRow::Control;

EditState withLayers(std::initializer_list<ContentKind> kinds) {
    EditState state;
    state.spec.output = {1080, 1920, 30};
    state.spec.scenes.emplace_back().durationSec = 4;
    for (const ContentKind kind : kinds) LayerOperations::addLayer(state, 0, kind);
    return state;
}

const InspectorRow* find(const Inspection& shown, const std::string& path) {
    for (const InspectorSection& section : shown.sections)
        for (const InspectorRow& row : section.rows)
            if (row.path.text() == path) return &row;
    return nullptr;
}

InspectorRow rowAt(const EditState& state, const std::string& path) {
    const Inspection shown = inspection(state);
    const InspectorRow* const row = find(shown, path);
    EXPECT_TRUE(row) << path;
    return row ? *row : InspectorRow{};
}

TEST(InspectorRows, TellWhatTheDocumentSaysOfItsValues) {
    const EditState state = withLayers({ContentKind::text});
    const InspectorRow size = rowAt(state, "/text/sizeFraction");
    EXPECT_EQ(size.control, Control::number);
    EXPECT_EQ(size.label, "Size");
    EXPECT_NEAR(size.value.doubleValue().value() * size.shownTimes, 86.4, 1e-9);   // pixels of 1920 lines
    EXPECT_EQ(size.unit, Unit::pixels);
    EXPECT_EQ(rowAt(state, "/text/color").control, Control::color);
    EXPECT_EQ(rowAt(state, "/text/font").control, Control::font);
    EXPECT_EQ(rowAt(state, "/text/text").control, Control::paragraph);
    EXPECT_EQ(rowAt(state, "/text/kinetic").control, Control::kinetic);
    const InspectorRow opacity = rowAt(state, "/opacity");
    EXPECT_EQ(opacity.range.lower, 0);
    EXPECT_EQ(opacity.range.upper, 1);
    EXPECT_TRUE(opacity.isAtRest);
    const InspectorRow position = rowAt(state, "/position");
    EXPECT_EQ(position.control, Control::numbers);
    EXPECT_THAT(position.parts, testing::ElementsAre("x", "y"));
    EXPECT_THAT(rowAt(state, "/text/fontWeight").words, testing::Contains("semibold"));
}

TEST(InspectorRows, EveryKindOfLayerHasRowsThatCanBeSetToWhatTheyShow) {
    for (const ContentKindRow& kind : contentKinds) {
        EditState state = withLayers({kind.kind});
        for (const std::string_view effect : effectKinds()) LayerOperations::addEffect(state, 0, 0, effect);
        LayerOperations::setEnterPhase(state, 0, 0, KineticPhase::identity);
        if (auto* device = state.content<DeviceContent>(0, 0)) device->placement.emplace();
        const EditState before = state;
        const Inspection shown = inspection(state);
        std::set<std::string> paths;
        for (const InspectorSection& section : shown.sections)
            for (const InspectorRow& row : section.rows) {
                EXPECT_TRUE(paths.insert(row.path.text()).second) << row.path.text();
                EXPECT_FALSE(row.label.empty()) << row.path.text();
                EXPECT_FALSE(row.help.empty()) << row.path.text();
                const bool isWhole = row.control < Control::alternative;
                if (!isWhole || row.keyed || row.path.text() == "/durationSec") continue;
                EXPECT_EQ(InspectorEdit::set(state, row.path, row.value), std::nullopt) << row.path.text();
                EXPECT_EQ(state, before) << kind.label << row.path.text();
            }
        EXPECT_GT(paths.size(), 10u) << kind.label;
    }
}

// In the order in which it is thought of, without what a phase of a whole layer does not heed, unless a
// document has it: then it can be seen, and taken back.
TEST(InspectorRows, OfAPhaseAreThoseThatCount) {
    EditState state = withLayers({ContentKind::shape});
    const auto keysOf = [&](const std::string& phase) {
        std::vector<std::string> keys;
        for (const InspectorSection& section : inspection(state).sections)
            for (const InspectorRow& row : section.rows)
                if (row.path.tokens().front() == phase) keys.push_back(row.path.tokens().back());
        return keys;
    };
    EXPECT_THAT(keysOf("exit"), testing::ElementsAre("exit"));
    LayerOperations::setExitPhase(state, 0, 0, KineticPhase::identity);
    EXPECT_THAT(keysOf("exit"), testing::ElementsAre("exit", "durationSec", "curve", "opacity", "offset",
                                    "scale", "rotationDeg", "blurRadiusFraction"));
    EXPECT_THAT(keysOf("enter"), testing::ElementsAre("enter"));
    KineticPhase skewed;
    skewed.skewXDeg = 10;
    LayerOperations::setExitPhase(state, 0, 0, skewed);
    EXPECT_THAT(keysOf("exit"), testing::Contains("skewXDeg"));
    EXPECT_EQ(rowAt(state, "/exit/opacity").range.upper, 1);
    EXPECT_EQ(rowAt(state, "/exit/scale").range.lower, 0);
    EXPECT_THAT(rowAt(state, "/exit/rotationDeg").parts, testing::ElementsAre("z"));
}

TEST(DocumentWords, NumbersStandApartFromTheNamesOfRows) {
    const struct {
        const char *label, *name, *number;
    } cases[] = {{"Cue 12", "Cue", "12"}, {"Move X", "Move X", ""}, {"H264", "H264", ""}, {"7", "7", ""},
        {"", "", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(numbered(c.label).label, c.name);
        EXPECT_EQ(numbered(c.label).number, c.number);
    }
}

// Every row of a document that somebody has says nothing that was not collected.
TEST(DocumentWords, HoldWhatTheRowsOfEveryKindOfLayerSay) {
    const DocumentWords words = documentWords();
    for (const ContentKindRow& kind : contentKinds) {
        EditState state = withLayers({kind.kind});
        for (const std::string_view effect : effectKinds()) LayerOperations::addEffect(state, 0, 0, effect);
        LayerOperations::setEnterPhase(state, 0, 0, KineticPhase::identity);
        for (const InspectorSection& section : inspection(state).sections) {
            EXPECT_TRUE(section.title.empty() || words.labels.contains(section.title)) << section.title;
            for (const InspectorRow& row : section.rows) {
                EXPECT_TRUE(words.labels.contains(numbered(row.label).label)) << row.label;
                EXPECT_TRUE(words.helps.contains(row.help)) << row.help;
            }
        }
    }
}

TEST(InspectorRows, SeveralLayersShowWhatTheyHaveInCommonAndWhereTheyDiffer) {
    EditState state = withLayers({ContentKind::text, ContentKind::text, ContentKind::shape});
    state.content<TextContent>(0, 1)->trackingEm = 0.2;
    state.selection = {0, 0, {{0, 1}}};
    EXPECT_TRUE(rowAt(state, "/text/trackingEm").isMixed);
    EXPECT_FALSE(rowAt(state, "/text/sizeFraction").isMixed);
    EXPECT_EQ(inspection(state).title, "2 layers");
    EXPECT_EQ(InspectorEdit::set(state, JsonPointer::parse("/text/trackingEm"), Json(0.1)), std::nullopt);
    EXPECT_EQ(state.content<TextContent>(0, 0)->trackingEm, 0.1);
    EXPECT_EQ(state.content<TextContent>(0, 1)->trackingEm, 0.1);
    EXPECT_EQ(state.content<TextContent>(0, 1)->text, "New text");
    state.selection = {0, 0, {{0, 2}}};
    const Inspection mixed = inspection(state);
    EXPECT_FALSE(find(mixed, "/text/sizeFraction"));
    EXPECT_TRUE(find(mixed, "/opacity"));
}

TEST(InspectorRows, APartOfAPointLeavesTheOtherToEachLayer) {
    EditState state = withLayers({ContentKind::text, ContentKind::text});
    state.layer(0, 0)->position = {10, 20};
    state.layer(0, 1)->position = {30, 40};
    state.selection = {0, 0, {{0, 1}}};
    EXPECT_EQ(InspectorEdit::setPart(state, JsonPointer::parse("/position"), "x", 99), std::nullopt);
    EXPECT_EQ(state.layer(0, 0)->position, (PixelPoint{99, 20}));
    EXPECT_EQ(state.layer(0, 1)->position, (PixelPoint{99, 40}));
}

TEST(InspectorRows, OptionalValuesComeAndGo) {
    EditState state = withLayers({ContentKind::text});
    const JsonPointer shadow = JsonPointer::parse("/text/shadow");
    EXPECT_EQ(rowAt(state, "/text/shadow").value, Json(false));
    const std::size_t before = inspection(state).sections.size();
    InspectorEdit::setPresent(state, shadow, true);
    EXPECT_TRUE(state.content<TextContent>(0, 0)->shadow);
    EXPECT_EQ(rowAt(state, "/text/shadow").value, Json(true));
    EXPECT_EQ(inspection(state).sections.size(), before);
    EXPECT_EQ(InspectorEdit::reset(state, rowAt(state, "/text/shadow")), std::nullopt);
    EXPECT_FALSE(state.content<TextContent>(0, 0)->shadow);
}

TEST(InspectorRows, AReadLayerTellsWhatItsMotionSets) {
    EditState state = withLayers({ContentKind::device});
    state.content<DeviceContent>(0, 0)->placement.emplace();
    EXPECT_FALSE(rowAt(state, "/device/placement").isSetByPreset);
    state.layer(0, 0)->origin.baked = LayerOrigin::Baked::motion;
    EXPECT_TRUE(rowAt(state, "/device/placement").isSetByPreset);
    EXPECT_FALSE(rowAt(state, "/device/basePaddingPx").isSetByPreset);
    EXPECT_EQ(InspectorEdit::set(state, JsonPointer::parse("/opacity"), Json(0.5)), std::nullopt);
    EXPECT_EQ(state.layer(0, 0)->origin.baked, LayerOrigin::Baked::motion);   // it still comes from there
}

TEST(InspectorRows, AFormIsChosenAnew) {
    EditState state = withLayers({ContentKind::device});
    EXPECT_EQ(rowAt(state, "/device/screen").control, Control::alternative);
    EXPECT_THAT(rowAt(state, "/device/screen").words, testing::IsSupersetOf({"still", "video"}));
    InspectorEdit::setAlternative(state, JsonPointer::parse("/device/screen"), "video");
    EXPECT_TRUE(std::holds_alternative<VideoClip>(state.content<DeviceContent>(0, 0)->screen));
}

TEST(InspectorRows, ElementsOfListsAreEditedAddedAndTakenAway) {
    EditState state = withLayers({ContentKind::text});
    state.content<TextContent>(0, 0)->text = "Ship it today";
    const JsonPointer emphasis = JsonPointer::parse("/text/emphasis");
    EXPECT_EQ(rowAt(state, "/text/emphasis").control, Control::adder);
    InspectorEdit::append(state, emphasis, 0);
    InspectorEdit::append(state, emphasis, 0);
    auto& spans = state.content<TextContent>(0, 0)->emphasis;
    ASSERT_EQ(spans.size(), 2u);
    EXPECT_THAT(spans[1].wordIndices, testing::ElementsAre(1));   // the next word that has none
    const InspectorRow words = rowAt(state, "/text/emphasis/1/wordIndices");
    EXPECT_EQ(words.control, Control::picks);
    EXPECT_THAT(words.words, testing::ElementsAre("Ship", "it", "today"));
    EXPECT_EQ(InspectorEdit::set(state, words.path, parseJson("[0, 2]")), std::nullopt);
    EXPECT_THAT(state.content<TextContent>(0, 0)->emphasis[1].wordIndices, testing::ElementsAre(0, 2));
    EXPECT_EQ(rowAt(state, "/text/emphasis/0").label, "Emphasis 1");
    EXPECT_EQ(InspectorEdit::remove(state, emphasis / std::size_t(0)), std::nullopt);
    ASSERT_EQ(state.content<TextContent>(0, 0)->emphasis.size(), 1u);
    EXPECT_THAT(state.content<TextContent>(0, 0)->emphasis[0].wordIndices, testing::ElementsAre(0, 2));
}

TEST(InspectorRows, SoundsAreAddedAtThePlayhead) {
    EditState state = withLayers({});
    state.selection = {};
    setTrack(state, "song.mp3");
    InspectorEdit::append(state, JsonPointer::parse("/audio/cues"), 1.5);
    const InspectorRow at = rowAt(state, "/audio/cues/0/atSec");
    EXPECT_EQ(at.value, Json(1.5));
    EXPECT_EQ(InspectorEdit::set(state, at.path, Json(2)), std::nullopt);
    EXPECT_EQ(state.spec.audio->cues[0].atSec, 2);
}

TEST(InspectorRows, ScreensOfAFormationKeepTheirsWhenOneIsAdded) {
    EditState state = withLayers({ContentKind::device});
    const JsonPointer screens = JsonPointer::parse("/device/screens");
    InspectorEdit::append(state, screens, 0);
    std::get<StillScreen>(state.content<DeviceContent>(0, 0)->screens[0]).path = "one.png";
    InspectorEdit::append(state, screens, 0);
    const auto& all = state.content<DeviceContent>(0, 0)->screens;
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(std::get<StillScreen>(all[0]).path, "one.png");
}

TEST(InspectorRows, DevicesAreChosenFromTheCatalog) {
    const EditState state = withLayers({ContentKind::device});
    const InspectorRow model = rowAt(state, "/device/mockup/bundledID");
    EXPECT_EQ(model.control, Control::word);
    ASSERT_EQ(model.words.size(), model.wordNames.size());
    EXPECT_THAT(model.wordNames, testing::Contains(testing::HasSubstr("iPhone 16 Pro")));
}

TEST(InspectorRows, ACornerIsHalfASizeFromThePosition) {
    EditState state = withLayers({ContentKind::shape});   // 0.3 of the canvas each way
    state.layer(0, 0)->position = {500, 900};
    ContentSizes sizes;
    const Inspection shown = inspection(state, {.sizes = &sizes});
    const InspectorRow* const corner = find(shown, "/corner");
    ASSERT_TRUE(corner);
    EXPECT_NEAR(corner->value.find("x")->doubleValue().value(), 500 - 0.15 * 1080, 1e-9);
    EXPECT_FALSE(find(inspection(state), "/corner"));
    InspectorEdit::setCorner(state, "x", 0, 0.3 * 1080);
    EXPECT_NEAR(state.layer(0, 0)->position.x, 162, 1e-9);
    EXPECT_EQ(state.layer(0, 0)->position.y, 900);
}

TEST(InspectorEdit, TimesGoThroughTheirRules) {
    EditState state = withLayers({ContentKind::text, ContentKind::text});
    state.layer(0, 1)->durationSec = 1;
    EXPECT_EQ(InspectorEdit::set(state, JsonPointer::parse("/fromSec"), Json(9)), std::nullopt);
    EXPECT_EQ(state.layer(0, 1)->fromSec, 3);
    EXPECT_EQ(InspectorEdit::set(state, JsonPointer::parse("/durationSec"), Json(7)), std::nullopt);
    EXPECT_EQ(state.layer(0, 1)->durationSec, std::nullopt);   // it runs to the scene's end
    state.selection = {0, std::nullopt, {}};
    EXPECT_EQ(InspectorEdit::set(state, JsonPointer::parse("/durationSec"), Json(2)), std::nullopt);
    EXPECT_EQ(state.scene(0)->durationSec, 2);
    EXPECT_EQ(state.layer(0, 1)->fromSec, 1.5);   // stretched with it
}

TEST(InspectorEdit, WhatDoesNotFitIsToldAndChangesNothing) {
    EditState state = withLayers({ContentKind::text});
    const EditState before = state;
    const auto complaint = InspectorEdit::set(state, JsonPointer::parse("/text/color"), Json("green"));
    ASSERT_TRUE(complaint);
    EXPECT_THAT(*complaint, testing::EndsWith("."));
    EXPECT_EQ(state, before);
}

TEST(InspectorEdit, TheDocumentKeepsItsScenesAndWhereTheyCameFrom) {
    EditState state = withLayers({ContentKind::device});
    state.layer(0, 0)->origin.baked = LayerOrigin::Baked::motion;
    state.selection = {};
    EXPECT_EQ(InspectorEdit::set(state, JsonPointer::parse("/output/widthPx"), Json(720)), std::nullopt);
    EXPECT_EQ(state.spec.output.widthPx, 720);
    EXPECT_EQ(state.layer(0, 0)->origin.baked, LayerOrigin::Baked::motion);
}

TEST(Labels, AreReadable) {
    const struct {
        const char *key, *label;
    } cases[] = {{"maxWidthFraction", "Max width"}, {"trackingEm", "Tracking"}, {"fromSec", "Start"},
        {"cornerRadiusFraction", "Corner radius"}, {"driftPeriodSec", "Drift period"},
        {"scene3D", "In space"}, {"opacity", "Opacity"}, {"anchorX", "Anchor X"}, {"color", "Color"},
        {"textColor", "Text color"}, {"wordIndices", "Words"}};
    for (const auto& c : cases) EXPECT_EQ(labelOfKey(c.key), c.label);
}

TEST(Themes, AreKnownByTheirFill) {
    CompositionSpec spec;
    EXPECT_EQ(selectedTheme(spec), std::nullopt);
    for (const BasicCompositionTheme theme : allThemes) {
        spec.background = fillOf(theme);
        EXPECT_EQ(selectedTheme(spec), theme);
    }
    std::get<RGBAColor>(spec.background).r = 0.92;
    EXPECT_EQ(selectedTheme(spec), std::nullopt);
    EXPECT_EQ(std::get<LinearGradient>(fillOf(BasicCompositionTheme::sunset)).angleDegrees, 35);
}

TEST(Audio, APickedTrackMakesABedAndGainDecidesWhetherItIsHeard) {
    EditState state;
    EXPECT_FALSE(isMuted(state.spec));
    setTrack(state, "song.mp3");
    const MusicBed& bed = *state.spec.audio->music;
    EXPECT_EQ(bed.path, "song.mp3");
    EXPECT_EQ(bed.gain, 0.7);
    EXPECT_EQ(bed.fadeOutSec, 1.5);
    EXPECT_FALSE(isMuted(state.spec));
    state.spec.audio->music->gain = 0;
    EXPECT_TRUE(isMuted(state.spec));
    setTrack(state, "other.mp3");
    EXPECT_EQ(state.spec.audio->music->gain, 0);   // of a bed that is there only the file changes
}

}   // namespace
}   // namespace tavix
