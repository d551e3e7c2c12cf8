#include "TavixLive/Observing/Observable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tavix {
namespace {

using ::testing::ElementsAre;

TEST(Observable, TellsOfRealChangesAlone) {
    Observable<int> value{3};
    SharedObservable<std::string> text;
    int told = 0;
    const Connection watching = watch([&] { ++told; }, value, text);
    value = 3;
    text = std::string();
    text = std::make_shared<const std::string>();
    EXPECT_EQ(told, 0);
    value = 4;
    text = std::string("a");
    EXPECT_EQ(told, 2);
    const auto kept = text.shared();
    text = std::string("b");
    EXPECT_EQ(*kept, "a") << "who keeps one keeps what it was";
}

TEST(Observable, TellsOnceForABatchAndEverythingAtOnce) {
    Observable<int> a{0}, b{0};
    std::vector<std::pair<int, int>> seen;
    const Connection watching = watch([&] { seen.emplace_back(a(), b()); }, a, b);
    {
        const Batch outer;
        a = 1;
        {
            const Batch inner;
            b = 1;
        }
        EXPECT_TRUE(seen.empty()) << "not before the outermost ends";
        a = 2;
    }
    EXPECT_THAT(seen, ElementsAre(std::pair(2, 1)));
}

// Watchers may change what they watch, watch more, and end any of them, themselves included.
TEST(Observable, MayBeChangedByItsWatchers) {
    Observable<int> value{0};
    std::vector<std::string> told;
    std::optional<Connection> second, third;
    const Connection first = watch(
        [&] {
            told.push_back("first " + std::to_string(value()));
            second.reset();
            if (value() < 3) value = value() + 1;
            if (!third) third = watch([&] { told.push_back("third " + std::to_string(value())); }, value);
        },
        value);
    second = watch([&] { told.push_back("second"); }, value);
    value = 1;
    EXPECT_THAT(told, ElementsAre("first 1", "first 2", "first 3", "third 3"));
}

}   // namespace
}   // namespace tavix
