// What the model does beside editing: export, the grid of the music, and what is remembered.
#include "ManualEditor.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixRender/Tests/TestSounds.h"
#include "TestSupport/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

using ::testing::HasSubstr;

class ModelExport : public testing::ManualEditor {
protected:
    // Half a second of a small film.
    void loadTiny(FrameRate fps) {
        CompositionSpec spec = testing::smallFilm();
        spec.output = {320, 320, fps};
        spec.scenes.resize(1);
        spec.scenes[0].durationSec = 0.5;
        model->loadInMemory(spec, folder.path());
        time.advance(1);
    }
    void exportTo(const char* name) {
        model->exportTo(folder / name);
        time.advance(1);
    }

    testsupport::TemporaryFolder folder;
};

TEST_F(ModelExport, WritesTheFilmAsItWasWhenItWasAsked) {
    loadTiny(60);
    state().exportFormat = ExportFormat::gif;
    std::vector<double> progress;
    const Connection watching =
        watch([&] { progress.push_back(state().exportProgress()); }, state().exportProgress);
    model->exportTo(folder / "film.gif");
    EXPECT_TRUE(state().isExporting());
    model->update("Longer", [](EditState& changed) { changed.spec.scenes[0].durationSec = 3; });
    time.advance(1);
    EXPECT_FALSE(state().isExporting());
    EXPECT_EQ(state().exportProgress(), 1);
    EXPECT_TRUE(std::ranges::is_sorted(progress));
    EXPECT_EQ(state().statusMessage(), "Exported film.gif.");
    const media::MediaInfo info = media::probeMedia(folder / "film.gif");
    ASSERT_FALSE(info.video.empty());
    EXPECT_NEAR(info.durationSec, 0.5, 0.06);
    EXPECT_NEAR(info.video[0].framesPerSec, 18, 2) << "a GIF has no more pictures a second";
}

TEST_F(ModelExport, TellsWhatFailedAndKeepsNothingOfIt) {
    loadTiny(30);
    writeBytesAtomically("no folder", folder / "taken");
    exportTo("taken/film.mp4");
    EXPECT_FALSE(state().isExporting());
    ASSERT_TRUE(state().errorMessage());
    EXPECT_THAT(*state().errorMessage(), ::testing::StartsWith("Export failed: "));
    EXPECT_EQ(readBytes(folder / "taken"), "no folder");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST_F(ModelExport, KeepsTheOldFilmUntilTheNewOneIsWhole) {
    for (const ExportFormat format : {ExportFormat::gif, ExportFormat::video}) {
        loadTiny(30);
        state().exportFormat = format;
        const std::filesystem::path film = folder / (format == ExportFormat::gif ? "old.gif" : "old.mp4");
        writeBytesAtomically("precious", film);
        model->exportTo(film);
        model->exports().stopAll();
        time.advance(1);
        EXPECT_EQ(readBytes(film), "precious");
        // Not one byte goes into the old file: under another name it stays what it was.
        std::filesystem::create_hard_link(film, folder / "kept");
        model->exportTo(film);
        time.advance(1);
        EXPECT_FALSE(media::probeMedia(film).video.empty());
        EXPECT_EQ(readBytes(folder / "kept"), "precious");
        std::filesystem::remove(film);
        std::filesystem::remove(folder / "kept");
        EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    }
}

// Pictures take their names together, and only when all are there.
TEST_F(ModelExport, WritesAPictureForEveryFrameIntoAFolder) {
    loadTiny(10);
    state().exportFormat = ExportFormat::png;
    std::filesystem::create_directory(folder / "shots");
    writeBytesAtomically("precious", folder / "shots/00002.png");
    std::filesystem::create_hard_link(folder / "shots/00002.png", folder / "kept");
    model->exportTo(folder / "shots/%05d.png");
    model->exports().stopAll();
    time.advance(1);
    EXPECT_EQ(readBytes(folder / "shots/00002.png"), "precious");
    exportTo("shots/%05d.png");
    EXPECT_EQ(state().statusMessage(), "Exported shots.");
    EXPECT_EQ(state().exportTarget(), folder / "shots");
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(readBytes(folder / "shots" / ("0000" + std::to_string(i) + ".png")).substr(1, 3), "PNG");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "shots"), {}), 5);
    EXPECT_EQ(readBytes(folder / "kept"), "precious");
}

TEST_F(ModelExport, KeepsToTheBytesThatTheFileMayHave) {
    using enum ExportFormat;
    for (const auto& [format, name] :
        {std::pair(gif, "film.gif"), {webp, "film.webp"}, {video, "film.mp4"}}) {
        SCOPED_TRACE(name);
        loadTiny(30);
        state().exportFormat = format;
        state().exportMostBytes = std::optional<std::int64_t>();
        exportTo(name);
        const auto whole = std::int64_t(std::filesystem::file_size(folder / name));
        // A video of so little has hardly more than its container.
        const std::int64_t most = format == video ? whole * 2 : whole * 6 / 10;
        state().exportMostBytes = most;
        exportTo(name);
        const auto bytes = std::int64_t(std::filesystem::file_size(folder / name));
        EXPECT_LE(bytes, most);
        state().exportMostBytes = 20;
        exportTo(name);
        EXPECT_THAT(state().errorMessage().value_or(""), HasSubstr("does not fit"));
        EXPECT_EQ(std::int64_t(std::filesystem::file_size(folder / name)), bytes) << "the last one stays";
    }
}

TEST_F(ModelExport, OneAfterAnotherIsWrittenEachAsItWasWhenItWasAsked) {
    loadTiny(10);
    model->exportTo(folder / "first.mp4");
    model->update("Longer", [](EditState& changed) { changed.spec.scenes[0].durationSec = 1; });
    model->exportTo(folder / "second.mp4");
    model->exportTo(folder / "never.mp4");
    using Stand = ExportJob::Stand;
    const auto stands = [this] {
        std::vector<Stand> all;
        for (const ExportJob& job : model->exports().jobs()) all.push_back(job.stand);
        return all;
    };
    EXPECT_EQ(stands(), (std::vector{Stand::running, Stand::waiting, Stand::waiting}));
    model->exports().stop(3);
    time.advance(1);
    EXPECT_EQ(stands(), (std::vector{Stand::done, Stand::done, Stand::stopped}));
    EXPECT_FALSE(state().isExporting());
    EXPECT_NEAR(media::probeMedia(folder / "first.mp4").durationSec, 0.5, 0.02);
    EXPECT_NEAR(media::probeMedia(folder / "second.mp4").durationSec, 1, 0.02);
    EXPECT_FALSE(std::filesystem::exists(folder / "never.mp4"));
    model->exports().dismiss(1);
    EXPECT_EQ(stands(), (std::vector{Stand::done, Stand::stopped}));
}

TEST_F(ModelExport, AnErrorStaysUntilItsOwnMatterGoesWell) {
    loadTiny(30);
    writeBytesAtomically("no folder", folder / "taken");
    exportTo("taken/film.mp4");
    ASSERT_TRUE(state().errorMessage());
    tint();
    time.advance(1);
    EXPECT_TRUE(state().errorMessage()) << "a picture that was drawn says nothing of the export";
}

TEST_F(ModelExport, FindsTheBeatOfTheMusicAsAStep) {
    std::vector<float> clicks(testing::soundRateHz * 16);
    for (int beat = 0; beat < 32; ++beat)
        for (int i = 0; i < 1200; ++i)
            clicks[std::size_t(beat * testing::soundRateHz / 2 + 12000 + i)] =
                float(std::sin(i * 0.2) * std::exp(-i / 200.0));
    testing::writeWav(folder / "clicks.wav", clicks);
    testing::writeWav(folder / "quiet.wav", std::vector<float>(testing::soundRateHz * 4));
    loadTiny(30);
    model->analyzeMusicGrid();
    EXPECT_FALSE(state().isAnalyzingMusic()) << "there is no music";
    const auto hear = [this](const char* name) {
        model->update("Music", [&](EditState& changed) {
            changed.spec.audio.emplace();
            changed.spec.audio->music.emplace();
            changed.spec.audio->music->path = name;
        });
        time.advance(1);
        model->analyzeMusicGrid();
        EXPECT_TRUE(state().isAnalyzingMusic());
        time.advance(1);
        EXPECT_FALSE(state().isAnalyzingMusic());
    };
    hear("clicks.wav");
    EXPECT_THAT(state().statusMessage(),
        ::testing::MatchesRegex("Beat grid: 120\\.[01] BPM, first beat 0\\.2[0-9]s\\."));
    EXPECT_NEAR(*spec().audio->music->bpm, 120, 0.5);
    EXPECT_EQ(*model->history().undoName(), "Find the beat");
    hear("quiet.wav");
    EXPECT_EQ(state().errorMessage(), "Beat analysis failed for quiet.wav — set BPM by ear.");
}

TEST_F(ModelExport, RemembersWhatWasOpened) {
    RecentProjects recents{UserDefaults(folder / "config")};
    const auto bundle = folder / "film.tavixcomp";
    std::filesystem::create_directory(bundle);
    CompositionProjectBundle::save(testing::smallFilm(), bundle);
    CompositionEditorModel::Services services{{main, render, workers}, maker};
    services.recents = &recents;
    CompositionEditorModel remembering(services);
    remembering.open(bundle);
    time.advance(1);
    remembering.open(folder / "gone.tavixcomp");
    time.advance(1);
    ASSERT_EQ(recents.list().size(), 1u);
    EXPECT_EQ(recents.list()[0].path, bundle);
}

// A document with an error is shown no more, and saved all the same.
TEST_F(ModelExport, SavesADocumentThatLintRefuses) {
    const auto bundle = folder / "film.tavixcomp";
    std::filesystem::create_directory(bundle);
    CompositionProjectBundle::save(testing::smallFilm(), bundle);
    model->open(bundle);
    time.advance(1);
    model->update("Break", [](EditState& changed) { changed.spec.scenes[0].durationSec = -1; });
    time.advance(1);
    EXPECT_THAT(*state().errorMessage(), HasSubstr("scenes[0]"));
    model->save();
    time.advance(1);
    EXPECT_EQ(state().statusMessage(), "Saved composition.json.");
    EXPECT_EQ(CompositionProjectBundle::read(bundle), spec());
}

TEST_F(ModelExport, SetsUpDevicesInSpaceBeforeTheyAreReached) {
    CompositionSpec spec = testing::smallFilmWithDevice();
    std::swap(spec.scenes[0], spec.scenes[1]);
    model->loadInMemory(spec, "/nowhere");
    time.advance(0.4);
    std::vector<double> drawn;
    for (const auto& draw : maker->last->draws) drawn.push_back(draw.atSec);
    EXPECT_THAT(drawn,
        ::testing::ElementsAre(0, ::testing::DoubleNear(3.3, 1e-9), ::testing::DoubleNear(3.55, 1e-9)));
}

}   // namespace
}   // namespace tavix
