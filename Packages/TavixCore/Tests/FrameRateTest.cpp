#include "TavixCore/Document/CompositionOutput.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/JsonWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace tavix {
namespace {

FrameRate rateOf(std::int64_t numerator, std::int64_t denominator) {
    return *FrameRate::ratio(numerator, denominator);
}

std::string fpsOf(const std::string& json) {
    return decodeJson<CompositionOutput>(R"({"fps": )" + json + "}").fps.text();
}

std::string failureOf(const std::string& json) {
    try {
        return fpsOf(json);
    } catch (const DecodingError& error) {
        return error.message();
    }
}

TEST(FrameRate, ReadsWholeNumbersDecimalsAndFractions) {
    const struct {
        const char *json, *text;
    } cases[] = {
        {"25", "25"},
        {"25.0", "25"},
        {"0", "0"},
        {"-3", "-3"},
        {"12.5", "25/2"},
        {"29.5", "59/2"},
        {"29.97", "30000/1001"},
        {"29.97003", "30000/1001"},
        {"23.976", "24000/1001"},
        {"23.98", "24000/1001"},
        {"47.952", "48000/1001"},
        {"59.94", "60000/1001"},
        {"119.88", "120000/1001"},
        {"23.9", "239/10"},
        {"29.9", "299/10"},
        {"29.96", "749/25"},
        {"30.01", "3001/100"},
        {"0.33333", "33333/100000"},
        {"\"24\"", "24"},
        {"\"29.97\"", "30000/1001"},
        {"\"30000/1001\"", "30000/1001"},
        {"\"50/2\"", "25"},
        {"1e300", "100000000"},
    };
    for (const auto& c : cases) EXPECT_EQ(fpsOf(c.json), c.text) << c.json;
}

TEST(FrameRate, SaysWhatCannotBeARate) {
    const std::string must =
        R"("fps" must be a number of frames a second or a fraction such as "30000/1001", but is )";
    const struct {
        const char *json, *ending;
    } cases[] = {
        {R"("fast")", R"("fast".)"},
        {R"("30000/0")", R"("30000/0".)"},
        {R"("30/-1")", R"("30/-1".)"},
        {R"("1/2/3")", R"("1/2/3".)"},
        {R"("nan")", R"("nan".)"},
        {R"("")", R"("".)"},
        {R"("1/900000000")", R"("1/900000000".)"},
        {"true", "a boolean."},
        {"[30]", "a list."},
    };
    for (const auto& c : cases) EXPECT_EQ(failureOf(c.json), must + c.ending) << c.json;
}

// What is written is read as the same rate, and whole ones stay numbers.
TEST(FrameRate, SurvivesTheDocument) {
    std::vector<FrameRate> rates{rateOf(25, 2), rateOf(1, 3), rateOf(FrameRate::largestTerm, 7)};
    for (std::int64_t whole = -1; whole <= 240; ++whole)
        rates.insert(rates.end(), {whole, rateOf(whole * 1000, 1001)});
    for (const FrameRate& rate : rates) {
        const CompositionOutput output{1920, 1080, rate};
        const Json json = Codec<CompositionOutput>::write(output);
        EXPECT_EQ(json.find("fps")->isNumber(), rate.denominator() == 1) << rate.text();
        EXPECT_EQ(decodeJson<CompositionOutput>(writeJson(json)), output) << rate.text();
    }
}

// However many of its digits somebody writes.
TEST(FrameRate, KnowsTheRatesOfTelevisionByAnyNumberOfDigits) {
    for (std::int64_t whole = 12; whole <= 240; whole += 6)
        for (const int digits : {2, 3, 4, 6, 12}) {
            char text[32];
            std::snprintf(text, sizeof text, "%.*f", digits, double(whole) * 1000 / 1001);
            if (std::string(text).ends_with("0")) continue;   // as good as a digit less
            EXPECT_EQ(FrameRate::parsed(text), rateOf(whole * 1000, 1001)) << text;
        }
}

TEST(FrameRate, FindsTheFrameOfEveryMomentThatItGives) {
    for (const FrameRate& rate :
        {FrameRate(7), FrameRate(24), rateOf(24000, 1001), rateOf(60000, 1001), rateOf(25, 2)})
        for (std::int64_t frame = 0; frame < 300'000; frame += 977) {
            EXPECT_EQ(rate.frameNearest(rate.secAt(frame)), frame) << rate.text();
            EXPECT_EQ(rate.frameNearest(rate.secAt(frame) + 0.49 / double(rate)), frame) << rate.text();
        }
}

}   // namespace
}   // namespace tavix
