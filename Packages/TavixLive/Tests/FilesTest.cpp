#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixLive/Files/Backups.h"
#include "TavixLive/Files/RecentProjects.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

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

constexpr Backups::Time someTime = std::chrono::sys_days(2026y / 11 / 23) + 15h;

TEST(Backups, GrowThinWithAge) {
    std::mt19937 random(2);
    std::vector<Backups::Time> kept;
    for (int save = 0; save < 4000; ++save) {   // some twelve a working hour, for a year and more
        const Backups::Time now =
            someTime + std::chrono::hours(2 * save) + std::chrono::minutes(random() % 50);
        kept.push_back(now);
        kept = Backups::thinned(kept, now);
        ASSERT_EQ(kept.front(), now);
        ASSERT_EQ(Backups::thinned(kept, now), kept) << "once is enough";
        ASSERT_LE(kept.size(), 10u + 25 + 31 + 54);
    }
    const Backups::Time now = kept.front();
    const auto between = [&](auto from, auto to) {
        return std::ranges::count_if(kept, [&](auto at) { return now - at >= from && now - at < to; });
    };
    EXPECT_EQ(between(0h, 20h), 10);
    EXPECT_NEAR(double(between(48h, 240h)), 8, 1) << "one a day";
    EXPECT_NEAR(double(between(24h * 70, 24h * 140)), 10, 1) << "one a week";
    EXPECT_EQ(between(24h * 366, 24h * 9999), 0);
}

TEST(Backups, AreOfOneBundleAndNotKeptTwice) {
    const testsupport::TemporaryFolder folder;
    const Backups backups(folder / "deep");
    const auto one = folder / "film.tavixcomp", other = folder / "else" / "film.tavixcomp";
    EXPECT_TRUE(backups.list(one).empty());
    for (int i = 0; i < 6; ++i)
        backups.keep(one, "text " + std::to_string(i / 2), someTime + std::chrono::milliseconds(10 * i));
    backups.keep(other, "another", someTime);
    const auto kept = backups.list(one);
    ASSERT_EQ(kept.size(), 3u);
    EXPECT_EQ(readBytes(kept[0].file), "text 2");
    EXPECT_EQ(kept[0].at, someTime + 40ms);
    EXPECT_EQ(readBytes(kept[2].file), "text 0");
    EXPECT_EQ(backups.list(other).size(), 1u);
    for (int i = 0; i < 30; ++i) backups.keep(one, std::to_string(i), someTime + std::chrono::seconds(1 + i));
    EXPECT_EQ(backups.list(one).size(), 10u) << "the others were of the same hour";
    writeBytesAtomically("", folder / "file");
    EXPECT_THROW(Backups(folder / "file").keep(one, "x", someTime), Failure);
}

}   // namespace
}   // namespace tavix
