#include "TavixCore/Support/JsonParser.h"

#include "TavixCore/Support/DecodingError.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>
#include <string>

namespace tavix {
namespace {

std::string failureOf(std::string_view text, const JsonLimits& limits = {}) {
    try {
        parseJson(text, limits);
        return "nothing failed";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), DecodingError::Kind::dataCorrupted);
        return error.message();
    }
}

TEST(JsonParser, SaysWhereAndWhatIsWrong) {
    const std::string syntax = "The document is not valid JSON at ";
    const struct {
        std::string text, sentence;
    } cases[] = {
        {"", syntax + "line 1, column 1: expected a value, but the document ends."},
        {"  \n ", syntax + "line 2, column 2: expected a value, but the document ends."},
        {"{\"a\" 1}", syntax + "line 1, column 6: expected \":\" after a key, but \"1\" stands there."},
        {"{\n  \"a\": 1,\n}", syntax + "line 3, column 1: expected a key in quotes, but \"}\" stands there."},
        {"{\"a\": 1 \"b\": 2}",
            syntax + "line 1, column 9: expected \",\" or \"}\" after a value, but \"\"\" stands there."},
        {"[1, 2", syntax + "line 1, column 6: expected \",\" or \"]\" after a value, but the document ends."},
        {"[1,]", syntax + "line 1, column 4: expected a value, but \"]\" stands there."},
        {"{'a': 1}", syntax + "line 1, column 2: expected a key in quotes, but \"'\" stands there."},
        {"tru", syntax + "line 1, column 1: expected a value, but \"t\" stands there."},
        {"NaN", syntax + "line 1, column 1: expected a value, but \"N\" stands there."},
        {"[-]", syntax + "line 1, column 2: expected a value, but \"-\" stands there."},
        {"1.", syntax + "line 1, column 3: expected a digit, but the document ends."},
        {"1e+", syntax + "line 1, column 4: expected a digit, but the document ends."},
        {"[01]", syntax + "line 1, column 3: expected \",\" or \"]\" after a value, but \"1\" stands there."},
        {"{} x", syntax + "line 1, column 4: expected nothing more after the end of the document, but \"x\" "
                          "stands there."},
        {"\"a", syntax + "line 1, column 3: expected the closing quote of a text, but the document ends."},
        {"\"\\x\"", syntax + "line 1, column 3: expected one of \" \\ / b f n r t u after a backslash, but "
                             "\"x\" stands there."},
        {"\"\\u12g4\"",
            syntax + "line 1, column 4: expected four hexadecimal digits after \\u, but \"1\" stands there."},
        {"\"\\u+123\"",
            syntax + "line 1, column 4: expected four hexadecimal digits after \\u, but \"+\" stands there."},
        {"\"a\nb\"", syntax +
                         "line 1, column 3: expected a control character to be written as an escape such as "
                         "\\n, but the line ends."},
        {"\"\xC3\xA4\xC3\xB6\" :",
            syntax + "line 1, column 6: expected nothing more after the end of the document, "
                     "but \":\" stands there."},
        {"[\"\xC3\x28\"]", "The document is not valid UTF-8 at line 1, column 3."},
        {"[1e999]", "The number at line 1, column 2 is too large for a 64-bit float."},
        {"[" + std::string(400, '9') + "]",
            "The number at line 1, column 2 is too large for a 64-bit float."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(failureOf(c.text), c.sentence);
    }
}

TEST(JsonParser, RefusesWhatIsTooBig) {
    const std::string deep = std::string(600, '[') + std::string(600, ']');
    EXPECT_EQ(failureOf(deep),
        "The document is nested more than 512 levels deep at line 1, column 513; no document needs that.");
    EXPECT_NO_THROW(parseJson(std::string(512, '[') + std::string(512, ']')));
    EXPECT_EQ(failureOf(std::string(1'000'000, '{')).substr(0, 30), "The document is not valid JSON");

    std::string many = "[0";
    for (int i = 0; i < 20; ++i) many += ",0";
    EXPECT_EQ(failureOf(many + "]", {.maxValues = 20}),
        "The document holds more than 20 values, which is more than is read; split it into smaller ones.");
    EXPECT_EQ(failureOf("[1, 2]", {.maxBytes = 5}),
        "The document has 6 bytes, which is more than the 5 that are read; split it into smaller ones.");
}

TEST(JsonParser, ReadsNumbersToTheirLastBit) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"0", 0},
        {"-0", -0.0},
        {"-0.0", -0.0},
        {"1", 1},
        {"1.0", 1},
        {"1e2", 100},
        {"1E+2", 100},
        {"0.1", 0.1},
        {"4.9406564584124654e-324", std::numeric_limits<double>::denorm_min()},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"1e-999", 0},
        {"-1e-999", -0.0},
        {"1e-99999999999999999999", 0},
        {"9223372036854775808", 0x1p63},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const double read = parseJson(c.text).doubleValue().value();
        EXPECT_EQ(read, c.value);
        EXPECT_EQ(std::signbit(read), std::signbit(c.value));
    }
    EXPECT_EQ(parseJson("-9223372036854775808").integerValue(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(parseJson("9007199254740993").integerValue(), 9007199254740993);
    EXPECT_EQ(parseJson("0." + std::string(400, '0') + "1").doubleValue(), 0);
}

TEST(JsonParser, ReadsEscapesAndHalfSurrogates) {
    const struct {
        const char *text, *value;
    } cases[] = {
        {R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t"},
        {R"("\u00e4")", "\xC3\xA4"},
        {R"("\u20AC")", "\xE2\x82\xAC"},
        {R"("\ud83d\ude00")", "\xF0\x9F\x98\x80"},
        {R"("\ud83d")", "\xEF\xBF\xBD"},
        {R"("\ude00x")", "\xEF\xBF\xBDx"},
        {R"("\ud83dA")", "\xEF\xBF\xBD"
                         "A"},
        {R"("\ud83d\u0041")", "\xEF\xBF\xBD"
                              "A"},
        {R"("\ud83d\ud83d\ude00")", "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(parseJson(c.text).stringValue(), c.value);
    }
    EXPECT_EQ(parseJson(R"("a\u0000b")").stringValue(), "a\xEF\xBF\xBD"
                                                        "b");
    EXPECT_TRUE(parseJson("\xEF\xBB\xBF{}").object());
}

TEST(JsonParser, KeepsTheLastOfEqualKeys) {
    EXPECT_EQ(parseJson(R"({"b": 1, "a": 2, "b": 3, "a": 4, "b": 5})"), (JsonObject{{"a", 4}, {"b", 5}}));
}

TEST(Json, TellsItsKinds) {
    EXPECT_TRUE(parseJson("null").isNull());
    EXPECT_TRUE(*parseJson("true").boolean());
    EXPECT_FALSE(parseJson("true").isNumber());
    EXPECT_EQ(parseJson("1").doubleValue(), 1);
    EXPECT_FALSE(parseJson("true").doubleValue());
    EXPECT_FALSE(parseJson("1").stringValue());
    EXPECT_EQ(parseJson("1.0"), parseJson("1"));
}

// Small mutations of a document that has everything in it: our grammar accepts exactly what an independent
// parser accepts, and reads the same value.
TEST(JsonParser, AgreesWithAnIndependentParser) {
    const std::string seedText =
        R"({"a":[1,-2.5e3,0.1,true,false,null],"b\n":{"c":"\u00e9\ud83d\ude00x","":[]}})";
    const std::string_view alphabet = "{}[]\",:.-+eE0123456789\\untfalsr \n\t\x01\xC3\xA9\xF0";
    SeededRandom random("json");
    for (int round = 0; round < 20'000; ++round) {
        std::string text = seedText;
        for (int change = static_cast<int>(random.next(1, 4)); change > 0; --change) {
            const auto at = static_cast<std::size_t>(random.next(0, static_cast<double>(text.size())));
            const char c = alphabet[random.next() % alphabet.size()];
            if (random.nextBool())
                text[at] = c;
            else if (random.nextBool())
                text.erase(at, 1);
            else
                text.insert(at, 1, c);
        }
        const auto theirs = nlohmann::json::parse(text, nullptr, false);
        // A half surrogate is the one thing on which we are more lenient.
        const bool isHalfSurrogate = text.find("\\ud") != std::string::npos;
        Json ours;
        bool isOurs = true;
        try {
            ours = parseJson(text);
        } catch (const DecodingError&) {
            isOurs = false;
        }
        if (theirs.is_discarded() == isOurs && isHalfSurrogate) continue;
        ASSERT_EQ(isOurs, !theirs.is_discarded()) << text;
        if (isOurs) {
            ASSERT_EQ(nlohmann::json::parse(writeJson(ours)), theirs) << text;
        }
    }
}

}   // namespace
}   // namespace tavix
