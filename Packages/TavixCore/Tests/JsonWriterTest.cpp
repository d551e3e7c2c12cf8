#include "TavixCore/Support/JsonWriter.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace tavix {
namespace {

TEST(JsonWriter, LaysADocumentOut) {
    const Json json = JsonObject{{"b", JsonArray{1, JsonObject{}, JsonArray{}}},
        {"a/b", "x/y \"\\\n\x01\x7F\xC2\x9B"}, {"c", JsonObject{{"d", nullptr}, {"Z", true}}}};
    EXPECT_EQ(writeJson(json), R"({
  "a/b" : "x/y \"\\\n\u0001\u007f\u009b",
  "b" : [
    1,
    {},
    []
  ],
  "c" : {
    "Z" : true,
    "d" : null
  }
})");
}

TEST(JsonWriter, WritesTheShortestNumbers) {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {0, "0"},
        {-0.0, "-0"},
        {1, "1"},
        {-3, "-3"},
        {0.1, "0.1"},
        {1.0 / 3, "0.3333333333333333"},
        {100000, "100000"},
        {1e15, "1000000000000000"},
        {0x1p53, "9007199254740992"},
        {1e16, "1e+16"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {1e300, "1e+300"},
        {5e-324, "5e-324"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
    };
    for (const auto& c : cases) EXPECT_EQ(writeJson(c.value), c.text);
    EXPECT_EQ(writeJson(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

TEST(JsonWriter, WritesNumbersThatReadBackToTheSameBits) {
    SeededRandom random("numbers");
    for (int i = 0; i < 100'000; ++i) {
        const auto value = std::bit_cast<double>(random.next());
        if (!std::isfinite(value)) continue;
        const std::string text = writeJson(value);
        const double read = parseJson(text).doubleValue().value();
        ASSERT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(value)) << text;
        ASSERT_EQ(writeJson(parseJson(text)), text);
    }
}

TEST(JsonWriter, RefusesNumbersThatAreNotFinite) {
    for (const double value : {std::numeric_limits<double>::quiet_NaN(),
             std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
        const Json document = JsonObject{{"a", 1}, {"scenes", JsonArray{1, JsonObject{{"t", value}}}}};
        try {
            writeJson(document);
            ADD_FAILURE() << "nothing failed";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.message(),
                "\"scenes[1].t\" is not a finite number and cannot be written; give it a finite one.");
        }
    }
}

TEST(JsonWriter, ReplacesBytesThatAreNoText) {
    EXPECT_EQ(writeJson("a\xFF\xC3z\xED\xA0\x80"),
        "\"a\xEF\xBF\xBD\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

}   // namespace
}   // namespace tavix
