#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tavix {
namespace {

TEST(SeededRandom, IsSplitMix64) {
    SeededRandom random(std::uint64_t{1234567});   // the published check values
    for (const std::uint64_t expected : {6457827717110365317u, 3203168211198807973u, 9817491932198370423u,
             4593380528125082431u, 16408922859458223821u})
        EXPECT_EQ(random.next(), expected);
}

TEST(SeededRandom, SeedsTextByFnv1a) {
    EXPECT_EQ(SeededRandom("").state, 0xcbf29ce484222325u);
    EXPECT_EQ(SeededRandom("a").state, 0xaf63dc4c8601ec8cu);
    EXPECT_EQ(SeededRandom("foobar").state, 0x85944171f73967e8u);
    EXPECT_EQ(SeededRandom("\xC3\xA9").state, SeededRandom::fnv1a("é"));
}

TEST(SeededRandom, TakesZeroForTheGammaConstant) {
    EXPECT_EQ(SeededRandom(std::uint64_t{0}), SeededRandom(splitMix64Gamma));
}

TEST(SeededRandom, DrawsEachKindOfValueFromOneStep) {
    for (std::uint64_t seed = 1; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        SeededRandom bits(seed), unit(seed), ranged(seed), coin(seed);
        const std::uint64_t drawn = bits.next();
        const double fraction = unit.nextUnit();
        EXPECT_EQ(fraction, static_cast<double>(drawn >> 11) / 9007199254740992.0);
        EXPECT_GE(fraction, 0);
        EXPECT_LT(fraction, 1);
        EXPECT_DOUBLE_EQ(ranged.next(-3, 5), -3 + 8 * fraction);
        EXPECT_EQ(coin.nextBool(), drawn % 2 == 1);
        EXPECT_TRUE(unit == bits && ranged == bits && coin == bits);
    }
}

}   // namespace
}   // namespace tavix
