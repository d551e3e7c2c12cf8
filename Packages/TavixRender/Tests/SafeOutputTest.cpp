#include "TavixRender/Export/SafeOutput.h"
#include "RenderTestKit.h"
#include "TavixCore/Support/Failure.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace tavix {
namespace {

void write(const std::filesystem::path& file, const std::string& text) { std::ofstream(file) << text; }

std::string textOf(const std::filesystem::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

class SafeOutputs : public ::testing::Test {
protected:
    long fileCount() const {
        return std::distance(std::filesystem::recursive_directory_iterator(folder.path()), {});
    }
    testing::TemporaryFolder folder;
    const std::filesystem::path target = folder.path() / "movie.mp4";
};

TEST_F(SafeOutputs, AppearWholeWhenCommitted) {
    write(target, "old");
    SafeOutput output(target);
    EXPECT_EQ(output.partial(), folder.path() / ".tavix-partial-movie.mp4");
    write(output.partial(), "new");
    EXPECT_EQ(textOf(target), "old");
    output.commit();
    EXPECT_EQ(textOf(target), "new");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(SafeOutputs, LeaveTheTargetAloneWhenAbandoned) {
    write(target, "old");
    {
        SafeOutput output(target);
        write(output.partial(), "half");
    }
    EXPECT_EQ(textOf(target), "old");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(SafeOutputs, SweepUpAfterAKilledRun) {
    write(folder.path() / ".tavix-partial-movie.mp4", "half");
    const SafeOutput output(target);
    EXPECT_FALSE(std::filesystem::exists(output.partial()));
}

TEST_F(SafeOutputs, MakeTheFolderTheyNeed) {
    SafeOutput output(folder.path() / "a" / "b" / "movie.mp4");
    write(output.partial(), "new");
    output.commit();
    EXPECT_EQ(textOf(folder.path() / "a" / "b" / "movie.mp4"), "new");
}

TEST_F(SafeOutputs, SayWhyTheyCannotBeCommitted) {
    SafeOutput nothingWritten(target);
    EXPECT_THROW(nothingWritten.commit(), Failure);
    std::filesystem::create_directories(target / "in-the-way");
    SafeOutput blocked(target);
    write(blocked.partial(), "new");
    EXPECT_THROW(blocked.commit(), Failure);
}

TEST(SafeOutput, WorksInTheCurrentFolder) {
    EXPECT_EQ(SafeOutput("movie.mp4").partial(), "./.tavix-partial-movie.mp4");
}

}   // namespace
}   // namespace tavix
