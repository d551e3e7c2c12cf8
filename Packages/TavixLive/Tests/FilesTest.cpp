#include "TavixCore/Support/FileBytes.h"
#include "TavixLive/Files/RecentProjects.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tavix {
namespace {

using namespace std::chrono_literals;

TEST(UserDefaults, KeepWhatWasSetAndTakeADamagedFileForNone) {
    const testsupport::TemporaryFolder folder;
    const UserDefaults defaults(folder.path() / "deep" / "tavix");
    EXPECT_TRUE(defaults.value("a").isNull());
    defaults.set("a", 1);
    UserDefaults(folder.path() / "deep" / "tavix").set("b", "two");
    EXPECT_EQ(defaults.value("a"), Json(1));
    EXPECT_EQ(defaults.value("b"), Json("two"));
    writeBytesAtomically("{ broken", folder.path() / "deep" / "tavix" / "defaults.json");
    EXPECT_TRUE(defaults.value("a").isNull());
    defaults.set("c", true);
    EXPECT_EQ(defaults.value("c"), Json(true));
}

TEST(RecentProjects, ListTheNewestFiveThatAreThere) {
    const testsupport::TemporaryFolder folder;
    const RecentProjects recents{UserDefaults(folder.path())};
    const auto at = [&](int i) { return folder.path() / ("film" + std::to_string(i) + ".tavixcomp"); };
    for (int i = 0; i < 14; ++i) {
        std::filesystem::create_directory(at(i));
        recents.add(at(i), std::chrono::sys_days(2026y / 11 / 23) + std::chrono::hours(i));
    }
    recents.add(
        folder.path() / "x" / ".." / "film9.tavixcomp" / "", std::chrono::sys_days(2027y / 1 / 2) + 3s);
    std::filesystem::remove(at(12));
    const std::vector<RecentProjects::Item> items = recents.list();
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[0].path, at(9)) << "by its standard path, once";
    EXPECT_EQ(items[0].date, std::chrono::sys_days(2027y / 1 / 2) + 3s);
    EXPECT_EQ(items[0].name(), "film9");
    EXPECT_EQ(items[1].path, at(13));
    EXPECT_EQ(items[2].path, at(11));
    EXPECT_EQ(items[4].path, at(8));
    EXPECT_EQ(UserDefaults(folder.path()).value("recentProjects").array()->size(), 10u);
}

TEST(RecentProjects, PassOverWhatIsNoEntry) {
    const testsupport::TemporaryFolder folder;
    const UserDefaults defaults(folder.path());
    defaults.set("recentProjects",
        JsonArray{1, JsonArray{"only"}, JsonArray{folder.path().string(), "some day"}, JsonArray{true, "x"}});
    const auto items = RecentProjects(defaults).list();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].date, RecentProjects::Date{});
}

}   // namespace
}   // namespace tavix
