#include "TavixLive/Gallery/PresetGallery.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Device/DeviceMotionRows.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Gallery/MotionPresetStore.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tavix {
namespace {

using ::testing::ElementsAre;

TEST(PresetGallery, HasEveryMotionAndFormationOnce) {
    const auto& items = PresetGalleryCatalog::all();
    std::set<std::string> ids;
    int motions = 0, formations = 0;
    for (const PresetGalleryItem& item : items) {
        EXPECT_TRUE(ids.insert(item.id).second) << item.id;
        EXPECT_EQ(item.accentIndex, motions + formations);
        const bool isMotion = item.family == PresetGalleryItem::Family::motion;
        ++(isMotion ? motions : formations);
        EXPECT_EQ(formations > 0, !isMotion) << "formations come last";
    }
    EXPECT_EQ(std::size_t(motions), DeviceMotionPreset::knownRawValues().size());
    const struct {
        const char *id, *title;
        double sec;
        int count;
        bool isSpatial;
    } rows[] = {{"fanDeck", "Fan deck", 2.8, 5, true}, {"uiBurst", "UI burst", 3.2, 5, true},
        {"orbitCarousel", "Orbit carousel", 4, 5, true}, {"colorwayDomino", "Colorway domino", 3.2, 5, true},
        {"ecosystemHandoff", "Ecosystem handoff", 3.6, 3, true},
        {"infiniteTunnel", "Infinite tunnel", 3.2, 6, true},
        {"screenCascade", "Screen cascade", 2.8, 4, false}, {"splitFocus", "Split focus", 2.6, 3, false},
        {"depthWave", "Depth wave", 3.6, 5, true}};
    ASSERT_EQ(formations, 9);
    for (std::size_t i = 0; i < 9; ++i) {
        const PresetGalleryItem& item = items[std::size_t(motions) + i];
        EXPECT_EQ(item.authoringName(), rows[i].id);
        EXPECT_EQ(item.title, rows[i].title);
        EXPECT_EQ(item.durationSec, rows[i].sec);
        EXPECT_EQ(item.elementCount, rows[i].count);
        EXPECT_EQ(item.dimension == PresetGalleryItem::Dimension::spatial, rows[i].isSpatial);
    }
}

// What a gallery plays can be rendered, and lasts as long as it says.
TEST(PresetGallery, HasAPreviewOfEveryItemThatLintPasses) {
    for (const PresetGalleryItem& item : PresetGalleryCatalog::all()) {
        const CompositionSpec spec = item.previewSpec("/art.jpg", {360, 640, 30});
        ASSERT_EQ(spec.scenes.size(), 1u) << item.id;
        EXPECT_FALSE(spec.scenes[0].layers.empty()) << item.id;
        EXPECT_GE(spec.scenes[0].durationSec, item.durationSec) << item.id;
        for (const CompositionLint::Finding& finding : CompositionLint::lint(spec))
            EXPECT_NE(finding.level, CompositionLint::Level::error) << item.id << ": " << finding.message;
    }
}

TEST(PresetGallery, NamesItsThumbnails) {
    PresetGalleryItem item;
    item.id = "motion.reveal";
    EXPECT_EQ(item.thumbnailAssetName(), "preset-gallery-motion-reveal");
}

TEST(MotionPresetStore, ListsWhatWasImportedByName) {
    const testsupport::TemporaryFolder folder;
    const MotionPresetStore store(folder.path() / "deep" / "MotionPresets");
    const auto put = [&](const char* name, const std::string& bytes) {
        writeBytesAtomically(bytes, folder.path() / name);
        return store.importMotion(folder.path() / name);
    };
    const DeviceMotion motion =
        DeviceMotionExpander::expand(*DeviceMotionPreset::fromRawValue("rise-up"), {});
    const MotionPresetStore::Item spin = put("Spin.motion.json", encodedJson(motion));
    put("arc.json", "broken");
    put("Zoom.JSON", "{}");
    put("notes.txt", "");
    std::vector<std::string> names;
    for (const auto& item : store.list()) names.push_back(item.name);
    EXPECT_THAT(names, ElementsAre("arc", "Spin", "Zoom.JSON"));
    EXPECT_EQ(MotionPresetStore::load(spin.path), motion);
    EXPECT_FALSE(MotionPresetStore::load(folder.path() / "arc.json"));
    EXPECT_FALSE(MotionPresetStore::load(folder.path() / "none.json"));
    put("Spin.motion.json", "{}");
    EXPECT_EQ(store.list().size(), 3u) << "in the place of the one before";
    EXPECT_THROW(store.importMotion(folder.path() / "none.json"), Failure);
    EXPECT_TRUE(MotionPresetStore("/proc/nowhere").list().empty());
}

TEST(PresetGallery, ListsReferencesThenOriginalsThenFormations) {
    using enum PresetGalleryItem::Collection;
    const auto rank = [](const PresetGalleryItem& item) {
        return item.collection == formation ? 2 : item.collection == original ? 1 : 0;
    };
    EXPECT_TRUE(std::ranges::is_sorted(PresetGalleryCatalog::all(), {}, rank));
    std::set<PresetGalleryItem::Collection> seen;
    for (const PresetGalleryItem& item : PresetGalleryCatalog::all()) {
        seen.insert(item.collection);
        if (item.collection == formation) continue;
        EXPECT_EQ(item.id, "motion." + item.authoringName());
        EXPECT_EQ(item.elementCount, 1);
    }
    EXPECT_EQ(seen.size(), 6u);
    std::vector<std::string_view> words;
    for (const auto collection : {entrance, exit, move, showcase, original, formation})
        words.push_back(displayName(collection));
    EXPECT_THAT(words,
        ElementsAre("Entrances", "Exits", "In-Scene Moves", "Showcases", "Tavix Originals", "Formations"));
    EXPECT_EQ(displayName(PresetGalleryItem::Family::motion), "Single Device");
    EXPECT_EQ(displayName(PresetGalleryItem::Family::formation), "Formation");
    EXPECT_EQ(displayName(PresetGalleryItem::Dimension::flat), "2D");
    EXPECT_EQ(displayName(PresetGalleryItem::Dimension::spatial), "3D");
}

// A device that leaves is seen for a moment first; one that comes begins at once.
TEST(PresetGallery, ShowsADeviceBeforeItLeaves) {
    int exits = 0;
    for (const PresetGalleryItem& item : PresetGalleryCatalog::all()) {
        const auto* preset = std::get_if<DeviceMotionPreset>(&item.source);
        if (preset == nullptr) continue;
        const bool leaves = deviceMotionRow(preset->rawValue())->category == DeviceMotionCategory::exit;
        DeviceMotionParams params;
        params.startAtSec = leaves ? 0.6 : 0;
        EXPECT_EQ(item.previewSpec("/a.png", {360, 640, 30}),
            DeviceMotionExpander::expand(*preset, params).previewSpec("/a.png", {360, 640, 30}))
            << item.id;
        exits += leaves;
    }
    EXPECT_GT(exits, 0);
}

TEST(MotionPresetStore, SortsAsPeopleLookForNames) {
    const testsupport::TemporaryFolder folder;
    const MotionPresetStore store(folder.path());
    for (const char* name : {"zoom", "Äther", "apple", "Éclair", "eclair", "Banana", "élan"})
        writeBytesAtomically("{}", folder.path() / (std::string(name) + ".json"));
    std::vector<std::string> names;
    for (const auto& item : store.list()) names.push_back(item.name);
    EXPECT_THAT(names, ElementsAre("apple", "Äther", "Banana", "eclair", "Éclair", "élan", "zoom"));
}

}   // namespace
}   // namespace tavix
