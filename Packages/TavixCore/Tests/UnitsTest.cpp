// What an arrow of a control adds to a number, and how the reference writes what it counts.
#include "TavixCore/Support/Unit.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(Units, HaveASymbolAndAStep) {
    for (int unit = int(Unit::none); unit <= int(Unit::decibels); ++unit) {
        EXPECT_EQ(symbolOf(Unit(unit)).empty(), Unit(unit) == Unit::none) << unit;
        EXPECT_GT(stepOf(Unit(unit)), 0) << unit;
    }
}

}   // namespace
}   // namespace tavix
