#include "TavixPlatform/System/EventLoop.h"
#include "TavixPlatform/System/InotifyWatcher.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <set>
#include <system_error>

namespace tavix::system {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const char* text) { std::ofstream(file) << text; }

class FolderWatching : public ::testing::Test {
protected:
    FolderWatcher::Watch watch(const fs::path& path) {
        return watcher.watch(path, loop, [this](const std::string& name) {
            names.insert(name);
            if (name == awaited) loop.stop();
        });
    }
    // Runs until that name is told, or for ten seconds.
    void await(const std::string& name) {
        awaited = name;
        const Timer most = loop.after(10, [this] { loop.stop(); });
        if (!names.contains(name)) loop.run();
        EXPECT_TRUE(names.contains(name)) << name;
    }

    testsupport::TemporaryFolder folder;
    EventLoop loop;
    InotifyWatcher watcher;
    std::set<std::string> names;
    std::string awaited;
};

TEST_F(FolderWatching, TellsWhatIsWrittenMovedAndRemoved) {
    write(folder / "old", "1");
    const auto handle = watch(folder.path());
    write(folder / "written", "1");
    await("written");
    fs::rename(folder / "old", folder / "new");
    await("new");
    EXPECT_TRUE(names.contains("old"));
    fs::remove(folder / "written");
    names.clear();
    await("written");
}

TEST_F(FolderWatching, TellsNothingOnceItHasEndedAndGoesOnForOthers) {
    bool isTold = false;
    auto ended = watcher.watch(folder.path(), loop, [&](const std::string&) { isTold = true; });
    const auto other = watch(folder.path());
    write(folder / "a", "1");
    ended.reset();   // with the word of it on its way
    write(folder / "b", "1");
    await("b");
    EXPECT_FALSE(isTold);
}

TEST_F(FolderWatching, TellsThatTheFolderItselfHasGone) {
    const fs::path inner = folder / "inner";
    fs::create_directory(inner);
    const auto handle = watch(inner);
    fs::remove(inner);
    await("");
}

TEST_F(FolderWatching, RefusesWhatIsNoFolderAndEndsBeforeItsHandles) {
    EXPECT_THROW(static_cast<void>(watch(folder / "gone")), std::system_error);
    FolderWatcher::Watch outliving;
    {
        InotifyWatcher brief;
        outliving = brief.watch(folder.path(), loop, [](const std::string&) {});
    }
    write(folder / "c", "1");
}

}   // namespace
}   // namespace tavix::system
