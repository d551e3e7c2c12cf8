#include "TavixCore/Support/FileBytes.h"

#include "TavixBase/Failure.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;

std::size_t countOf(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(FileBytes, ReadsBackWhatItWrote) {
    const testsupport::TemporaryFolder folder;
    const fs::path file = folder.path() / "a.json";
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{3'000'000}}) {
        const std::string bytes(size, '\xFE');
        writeBytesAtomically(bytes, file);
        EXPECT_EQ(readBytes(file), bytes);
    }
    EXPECT_EQ(countOf(folder.path()), 1u);
}

TEST(FileBytes, LeavesTheOldFileWhenWritingFails) {
    const testsupport::TemporaryFolder folder;
    const fs::path taken = folder.path() / "folder";   // a folder cannot be replaced by a file
    fs::create_directory(taken);
    writeBytesAtomically("old", taken / "inside");
    EXPECT_THROW(writeBytesAtomically("new", taken), Failure);
    EXPECT_EQ(readBytes(taken / "inside"), "old");
    EXPECT_EQ(countOf(folder.path()), 1u);
}

TEST(FileBytes, SaysWhichFileAndWhy) {
    const testsupport::TemporaryFolder folder;
    const std::string missing = (folder.path() / "no" / "such.json").string();
    const auto failureOf = [](auto action) -> std::string {
        try {
            action();
            return "nothing failed";
        } catch (const Failure& failure) {
            return failure.message();
        }
    };
    EXPECT_EQ(failureOf([&] { readBytes(missing); }),
        "Cannot read \"" + missing + "\": No such file or directory.");
    EXPECT_EQ(failureOf([&] { writeBytesAtomically("x", missing); }),
        "Cannot write \"" + missing + "\": there is no folder \"" + (folder.path() / "no").string() + "\".");
    EXPECT_EQ(failureOf([&] { readBytes(folder.path()); }),
        "Cannot read \"" + folder.path().string() + "\": it is a folder.");
    EXPECT_EQ(failureOf([] { readBytes("/dev/zero"); }),
        "Cannot read \"/dev/zero\": it is a device; save what it holds to a file and name that.");
    const std::string pipe = (folder.path() / "pipe").string();   // with nobody at its other end
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(failureOf([&] { readBytes(pipe); }),
        "Cannot read \"" + pipe + "\": it is a pipe; save what it holds to a file and name that.");
    const std::string large = (folder.path() / "large").string();
    writeBytesAtomically(std::string(1001, 'x'), large);
    EXPECT_EQ(failureOf([&] { readBytes(large, 1000); }),
        "Cannot read \"" + large + "\": it has more than 1000 bytes.");
}

TEST(FileBytes, KeepsPermissionsAndLinks) {
    const testsupport::TemporaryFolder folder;
    const fs::path file = folder.path() / "real.json", link = folder.path() / "link.json";
    writeBytesAtomically("old", file);
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(file, link);
    writeBytesAtomically("new", link);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(readBytes(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}   // namespace
}   // namespace tavix
