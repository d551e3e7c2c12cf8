#include "FakeMaker.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Saving/JournalKeeper.h"
#include "TavixPlatform/System/ManualTime.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>

namespace tavix {
namespace {

namespace fs = std::filesystem;

CompositionSpec film(std::int64_t seed) {
    CompositionSpec spec = testing::smallFilm();
    spec.seed = seed;
    return spec;
}

UnsavedWork work(std::int64_t seed) {
    return {"/films/one.tavixcomp", "{ \"as\": \"written\" }",
        [spec = film(seed)] { return writeValue(typeOf<CompositionSpec>(), &spec); },
        UnsavedWork::Time(std::chrono::seconds(1000 + seed))};
}

CompositionSpec documentOf(const LostWork& lost) {
    return decodeValue<CompositionSpec>(lost.read().document());
}

std::size_t entriesIn(const fs::path& folder) {
    std::error_code none;
    return std::size_t(std::distance(fs::directory_iterator(folder, none), fs::directory_iterator()));
}

TEST(Journal, IsFoundWhenItsSessionIsGoneAndNotWhileItLives) {
    const testsupport::TemporaryFolder folder;
    std::optional<Journal> living(folder.path()), healthy(folder.path());
    living->write(work(1));
    healthy->write(work(2));
    EXPECT_TRUE(LostWork::find(folder.path()).empty());
    healthy.reset();
    EXPECT_EQ(entriesIn(folder.path()), 1u);
    // What a killed session leaves: its folder, and a lock that is free.
    const fs::path left = fs::directory_iterator(folder.path())->path();
    for (const char* name : {"a", "b"}) fs::copy(left, folder / name);
    const std::vector<LostWork> lost = LostWork::find(folder.path());
    ASSERT_EQ(lost.size(), 2u);
    EXPECT_EQ(lost[0].assetRoot(), "/films/one.tavixcomp");
    EXPECT_EQ(documentOf(lost[0]), film(1));
    EXPECT_EQ(lost[0].read().writtenText, work(1).writtenText);
    EXPECT_TRUE(LostWork::find(folder.path()).empty()) << "another start has claimed them";
}

TEST(Journal, GoesForGoodWhenItIsForgottenAndStaysWhenItIsNot) {
    const testsupport::TemporaryFolder folder;
    {
        const Journal session(folder.path());
        session.write(work(3));
        fs::copy(fs::directory_iterator(folder.path())->path(), folder / "lost");
    }
    EXPECT_EQ(LostWork::find(folder.path()).size(), 1u);
    const std::vector<LostWork> again = LostWork::find(folder.path());
    ASSERT_EQ(again.size(), 1u);
    again[0].forget();
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(Journal, LeavesWhatItCannotReadAndSweepsWhatIsEmpty) {
    const testsupport::TemporaryFolder folder;
    fs::create_directory(folder / "empty");
    for (const char* text :
        {"", "{", "{\"version\": 2}", "{\"version\": 1, \"at\": 1, \"assetRoot\": \"/\"}"}) {
        const fs::path damaged = folder / ("damaged" + std::to_string(entriesIn(folder.path())));
        fs::create_directory(damaged);
        writeBytesAtomically(text, damaged / "unsaved.json");
    }
    EXPECT_TRUE(LostWork::find(folder.path()).empty());
    EXPECT_FALSE(fs::exists(folder / "empty"));
    EXPECT_EQ(entriesIn(folder.path()), 4u);
    EXPECT_TRUE(LostWork::find(folder / "gone").empty());
}

class Keeping : public ::testing::Test {
protected:
    Keeping() {
        keeper.emplace(JournalKeeper::Surroundings{main, files, folder / "journals",
                           [this](const Finding& finding) { told.push_back(finding.message); }},
            [this] { return work(seed); });
    }
    // What a crash at this moment would leave.
    std::int64_t onDisk() {
        for (const auto& entry : fs::directory_iterator(folder / "journals")) {
            const fs::path copy = folder / "copy" / "one";
            fs::remove_all(copy.parent_path());
            fs::create_directories(copy.parent_path());
            fs::copy(entry.path(), copy);
            const auto lost = LostWork::find(copy.parent_path());
            return lost.empty() ? 0 : documentOf(lost[0]).seed;
        }
        return 0;
    }

    testsupport::TemporaryFolder folder;
    system::ManualTime time;
    system::ManualExecutor main{time}, files{time};
    std::optional<JournalKeeper> keeper;
    std::vector<std::string> told;
    std::int64_t seed = 0;
};

// However edits come, none waits longer than five seconds, with half a second for the disk.
TEST_F(Keeping, HasEveryChangeOnDiskWithinFiveSeconds) {
    std::map<double, std::int64_t> changes;
    for (int i = 0; i < 400; ++i) {
        ++seed;
        keeper->noteChange();
        changes[time.nowSec()] = seed;
        if (i % 20 == 0) files.post([this] { time.spend(0.5); });
        time.advance(i % 7 == 0 ? 1.3 : 0.05);
        const auto old = changes.lower_bound(time.nowSec() - 5);
        if (old != changes.begin()) {
            ASSERT_GE(onDisk(), std::prev(old)->second) << time.nowSec();
        }
    }
    time.advance(5);
    EXPECT_EQ(onDisk(), seed);
    keeper->noteSaved();
    time.advance(1);
    EXPECT_EQ(onDisk(), 0) << "nothing is unsaved";
    keeper.reset();
    time.advance(1);
    EXPECT_TRUE(fs::is_empty(folder / "journals"));
}

TEST_F(Keeping, WritesNothingForADocumentThatIsOnlyLookedAt) {
    keeper->noteSaved();
    time.advance(10);
    EXPECT_FALSE(fs::exists(folder / "journals"));
}

TEST_F(Keeping, TellsOnceThatItCannotAndGoesOnTrying) {
    writeBytesAtomically("a file", folder / "journals");
    for (int i = 0; i < 3; ++i) {
        keeper->noteChange();
        time.advance(5);
    }
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].find("A crash would cost what is not saved: Cannot keep unsaved changes in"), 0u);
    fs::remove(folder / "journals");
    seed = 9;
    keeper->noteChange();
    time.advance(5);
    EXPECT_EQ(onDisk(), 9);
}

}   // namespace
}   // namespace tavix
