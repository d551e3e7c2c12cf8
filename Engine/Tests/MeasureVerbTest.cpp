#include "Engine/Tests/EngineTest.h"

#include <gmock/gmock.h>

namespace tavix::engine::testing {

namespace {

using ::testing::HasSubstr;

class MeasureVerb : public EngineTest {};

double numberAt(const Json& json, std::initializer_list<const char*> keys) {
    const Json* found = &json;
    for (const char* key : keys) found = found ? found->find(key) : nullptr;
    if (!found || !found->doubleValue()) {
        ADD_FAILURE() << "There is no number at " << *(keys.end() - 1) << ".";
        return -1;
    }
    return *found->doubleValue();
}

TEST_F(MeasureVerb, TellsWhatAPreviewCosts) {
    const Json report = json({"measure", "tiny.json", "--stage", "32x200", "--json"});
    EXPECT_EQ(numberAt(report, {"stage", "widthPx"}), 32);
    EXPECT_EQ(numberAt(report, {"stage", "heightPx"}), 48);
    EXPECT_NEAR(numberAt(report, {"playback", "sec"}), 1, 0.01);
    EXPECT_GT(numberAt(report, {"playback", "fps"}), 0);
    EXPECT_LE(numberAt(report, {"playback", "fps"}), 10.01) << "the film has ten frames a second";
    const double dropped = numberAt(report, {"playback", "droppedShare"});
    EXPECT_TRUE(dropped >= 0 && dropped <= 1) << dropped;
    for (const char* key : {"scrubMs", "editMs"}) {
        EXPECT_GT(numberAt(report, {key, "median"}), 0) << key;
        EXPECT_GE(numberAt(report, {key, "p95"}), numberAt(report, {key, "median"})) << key;
        EXPECT_GT(numberAt(report, {key, "count"}), 10) << key;
    }
    EXPECT_GT(numberAt(report, {"firstPictureMs"}), 0);
    EXPECT_GE(numberAt(report, {"driftMs"}), 0);
    EXPECT_GT(numberAt(report, {"mainHoldMs"}), 0);
    ASSERT_EQ(report.find("layers")->array()->size(), 1u);
    EXPECT_EQ(*report.find("layers")->array()->front().find("path"), Json("scenes[0].layers[0]"));
}

TEST_F(MeasureVerb, SpeaksToPeopleAndRefusesWhatNobodyCanMean) {
    const Outcome told = tavix({"measure", "tiny.json", "--play", "0.3"});
    EXPECT_EQ(told.status, 0) << told.err;
    EXPECT_THAT(told.out, HasSubstr("stage          64 × 96 pixels"));
    EXPECT_THAT(told.out, HasSubstr("scenes[0].layers[0]  shape: "));
    const Outcome wrong = tavix({"measure", "tiny.json", "--stage", "big"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.err,
        HasSubstr("--stage takes a width and a height from 16 to 8192, as in 1080x1920, not \"big\"."));
    EXPECT_EQ(tavix({"measure", "tiny.json", "--play", "0"}).status, 2);
}

}   // namespace

}   // namespace tavix::engine::testing
