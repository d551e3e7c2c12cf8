#include "TavixCore/Support/SafeOutput.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/UnfinishedFolders.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>

namespace tavix {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& text) { std::ofstream(file) << text; }

class SafeOutputs : public ::testing::Test {
protected:
    long fileCount() const { return std::distance(fs::recursive_directory_iterator(folder.path()), {}); }
    static std::string failureOf(const fs::path& target) {
        try {
            SafeOutput output(target);
            return "nothing failed";
        } catch (const Failure& failure) {
            return failure.message();
        }
    }
    testsupport::TemporaryFolder folder;
    const fs::path target = folder.path() / "movie.mp4";
};

TEST_F(SafeOutputs, AppearWholeWhenCommitted) {
    write(target, "old");
    {
        SafeOutput output(target);
        EXPECT_EQ(output.partial().extension(), ".mp4");
        write(output.partial(), "new");
        write(output.partial().parent_path() / "companion", "of the work");
        EXPECT_EQ(readBytes(target), "old");
        output.commit();
        EXPECT_EQ(readBytes(target), "new");
    }
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(SafeOutputs, LeaveTheTargetAloneWhenAbandoned) {
    write(target, "old");
    {
        SafeOutput output(target);
        write(output.partial(), "half");
    }
    EXPECT_EQ(readBytes(target), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(SafeOutputs, BelongToOneAtATime) {
    auto first = std::make_unique<SafeOutput>(target);
    write(first->partial(), "the first's");
    EXPECT_EQ(failureOf(target),
        "\"" + target.string() +
            "\" is being written by another program; wait for that one, or name another file.");
    fs::create_symlink(target, folder / "alias.mp4");
    EXPECT_NE(failureOf(folder / "alias.mp4"), "nothing failed");   // the same file by another name
    EXPECT_EQ(failureOf(folder / "other.mp4"), "nothing failed");
    first->commit();
    first.reset();
    EXPECT_EQ(readBytes(target), "the first's");
    EXPECT_EQ(failureOf(target), "nothing failed");
}

TEST_F(SafeOutputs, MayBeWaitedFor) {
    std::string last;
    {
        std::vector<std::jthread> writers;
        for (char name = 'a'; name < 'i'; ++name)
            writers.emplace_back(
                [&, text = std::string(100'000, name)] { writeBytesAtomically(text, target); });
    }
    last = readBytes(target);
    EXPECT_EQ(last, std::string(100'000, last.at(0)));
    EXPECT_EQ(fileCount(), 1);
}

// A killed program leaves its folder, and the system has let go of the lock on it.
TEST_F(SafeOutputs, SweepUpAfterKilledProgramsOnly) {
    const SafeOutput alive(folder / "alive.mp4");
    write(alive.partial(), "half");
    for (const char* name : {".tavix-partial-movie.mp4", ".tavix-partial-another.gif"}) {
        fs::create_directory(folder / name);
        write(folder / name / ".tavix-visual-movie.mp4", "of a dead one");
    }
    fs::create_directory(folder / ".tavix-project");   // somebody else's
    const SafeOutput output(target);
    EXPECT_TRUE(fs::is_empty(output.partial().parent_path()));
    EXPECT_FALSE(fs::exists(folder / ".tavix-partial-another.gif"));
    EXPECT_TRUE(fs::exists(folder / ".tavix-project"));
    EXPECT_EQ(readBytes(alive.partial()), "half");
}

TEST_F(SafeOutputs, AreGoneWhenTheProgramEndsInTheirMidst) {
    SafeOutput one(target), other(folder / "still.png");
    for (int i = 0; i < 200; ++i) write(one.partial().parent_path() / std::to_string(i), "part");
    write(other.partial(), "half");
    EXPECT_EQ(UnfinishedFolders::removeAll(), 2);
    EXPECT_EQ(fileCount(), 0);
    EXPECT_EQ(UnfinishedFolders::removeAll(), 0);
}

TEST_F(SafeOutputs, KeepPermissionsAndLinks) {
    write(folder / "real.mp4", "old");
    fs::permissions(folder / "real.mp4", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.mp4", folder / "near.mp4");
    fs::create_symlink(folder / "near.mp4", folder / "link.mp4");
    fs::create_symlink("later/new.mp4", folder / "dangling.mp4");
    for (const char* link : {"link.mp4", "dangling.mp4"}) {
        SafeOutput output(folder / link);
        write(output.partial(), "new");
        output.commit();
        EXPECT_TRUE(fs::is_symlink(folder / link));
        EXPECT_EQ(readBytes(folder / link), "new");
    }
    EXPECT_EQ(fs::status(folder / "real.mp4").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder / "later" / "new.mp4")));
    fs::create_symlink("circle.mp4", folder / "circle.mp4");
    EXPECT_EQ(failureOf(folder / "circle.mp4"),
        "Cannot write \"" + (folder / "circle.mp4").string() + "\": Too many levels of symbolic links.");
}

TEST_F(SafeOutputs, TakeEveryNameThatAFileMayHave) {
    const std::string longest = std::string(251, 'n') + ".mp4";
    {
        SafeOutput output(folder / longest);
        EXPECT_EQ(output.partial().extension(), ".mp4");
        write(output.partial().parent_path() / (".tavix-visual-" + output.partial().filename().string()), "");
        write(output.partial(), "new");
        output.commit();
    }
    EXPECT_EQ(readBytes(folder / longest), "new");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(SafeOutputs, MakeTheFolderTheyNeed) {
    SafeOutput output(folder.path() / "a" / "b" / "movie.mp4");
    write(output.partial(), "new");
    output.commit();
    EXPECT_EQ(readBytes(folder.path() / "a" / "b" / "movie.mp4"), "new");
}

TEST_F(SafeOutputs, SayWhyTheyCannotBeWritten) {
    {
        SafeOutput nothingWritten(target);
        EXPECT_THROW(nothingWritten.commit(), Failure);
    }
    write(folder / "file", "");
    EXPECT_EQ(failureOf(folder / "file" / "movie.mp4"),
        "Cannot write \"" + (folder / "file" / "movie.mp4").string() + "\": Not a directory.");
    fs::create_directories(target / "in-the-way");
    SafeOutput blocked(target);
    write(blocked.partial(), "new");
    EXPECT_THROW(blocked.commit(), Failure);
}

}   // namespace
}   // namespace tavix
