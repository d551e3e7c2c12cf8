// The rules of the field tables, on records made for the purpose.
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tavix {

namespace {

enum class Falloff { soft, sharp };
enum class Mount { wall, floor };

struct Glass {
    double thicknessMm = 2;
    bool operator==(const Glass&) const = default;
};
struct Wick {
    double heightMm = 8;
    std::string wax = "bee";
    bool operator==(const Wick&) const = default;
};
Wick soyWick() { return {12, "soy"}; }

struct OtherShade {
    std::string kind;
    bool operator==(const OtherShade&) const = default;
};
using Shade = std::variant<Glass, Wick, OtherShade>;
using Fuel = std::variant<Wick, Glass>;

struct Lantern {
    double startSec = 0;
    double warmthFraction = 0.3;
    std::optional<double> ageYears;
    Falloff falloff = Falloff::sharp;
    std::optional<Mount> mount;
    Wick wick = soyWick();
    std::vector<Wick> spares;
    std::map<std::string, std::int64_t> stock;
    std::optional<Glass> glass;
    Shade shade = Glass{};
    Fuel fuel = Wick{};
    Json extra;
    std::int64_t count = 1;
    bool operator==(const Lantern&) const = default;
};

struct Pair {
    double first = 0, second = 0;
    bool operator==(const Pair&) const = default;
};

const Names<Falloff>& namesOf(std::type_identity<Falloff>) {
    static const Names<Falloff> table{
        "falloff", {{Falloff::soft, "soft"}, {Falloff::sharp, "sharp"}}, Falloff::soft};
    return table;
}
const Names<Mount>& namesOf(std::type_identity<Mount>) {
    static const Names<Mount> table{"mount", {{Mount::wall, "wall"}, {Mount::floor, "floor"}}};
    return table;
}
const Fields<Glass>& fieldsOf(std::type_identity<Glass>) {
    static const Fields<Glass> table{"Glass", {field<&Glass::thicknessMm>("thickness", "")}};
    return table;
}
const Fields<Wick>& fieldsOf(std::type_identity<Wick>) {
    static const Fields<Wick> table{.name = "Wick",
        .rows = {field<&Wick::heightMm>("height", "").unlessDefault(), field<&Wick::wax>("wax", "")},
        .bareKey = "wax"};
    return table;
}
const Fields<OtherShade>& fieldsOf(std::type_identity<OtherShade>) {
    static const Fields<OtherShade> table{"OtherShade", {field<&OtherShade::kind>("kind", "")}};
    return table;
}
const Alternatives<Shade>& alternativesOf(std::type_identity<Shade>) {
    static const Alternatives<Shade> table{.name = "Shade",
        .noun = "shade",
        .rows = {flat<Shade, Glass>("glass"), keyed<Shade, Wick>("wick", "wick").orDefault(),
            flat<Shade, OtherShade>("")},
        .fallbackTag = ""};
    return table;
}
const Alternatives<Fuel>& alternativesOf(std::type_identity<Fuel>) {
    static const Alternatives<Fuel> table{.name = "Fuel",
        .noun = "fuel",
        .rows = {keyed<Fuel, Wick>("wax", "wick"), flat<Fuel, Glass>("glass")},
        .tagKey = "burns"};
    return table;
}
const Fields<Pair>& fieldsOf(std::type_identity<Pair>) {
    static const Fields<Pair> table{.name = "Pair",
        .rows = {field<&Pair::first>("first", ""), field<&Pair::second>("second", "")},
        .form = Fields<Pair>::Form::list};
    return table;
}
void addYears(Lantern& lantern, double decades) { lantern.ageYears = 10 * decades; }
const Fields<Lantern>& fieldsOf(std::type_identity<Lantern>) {
    static const Fields<Lantern> table{.name = "Lantern",
        .rows = {olderField<Lantern, double, addYears>("ageDecades", "Older form of ageYears."),
            field<&Lantern::startSec>("start", "When it lights.").required(),
            field<&Lantern::warmthFraction>("warmth", "").clamped(0, 1),
            field<&Lantern::ageYears>("ageYears", "").atLeast(1),
            field<&Lantern::falloff>("falloff", "").unlessDefault(), field<&Lantern::mount>("mount", ""),
            field<&Lantern::wick>("wick", ""), field<&Lantern::spares>("spares", "").unlessDefault(),
            field<&Lantern::stock>("stock", "").writtenIf([](const Lantern& l) {
                return l.stock.size() > 1;
            }),
            field<&Lantern::glass>("glass", "").tolerant(),
            field<&Lantern::shade>("shade", "").unlessDefault(),
            field<&Lantern::fuel>("fuel", "").unlessDefault(),
            field<&Lantern::extra>("extra", "").unlessDefault(),
            field<&Lantern::count>("count", "").unlessDefault()},
        .afterRead = [](Lantern& lantern) { lantern.count = std::max<std::int64_t>(lantern.count, 1); }};
    return table;
}

Lantern lantern(const std::string& more) {
    return decodeJson<Lantern>("{\"start\": 1" + (more.empty() ? "" : ", " + more) + "}");
}

TEST(FieldTables, MissingKeysAndNullsAreTheDefaults) {
    const Lantern fresh{.startSec = 1};
    EXPECT_EQ(lantern(""), fresh);
    EXPECT_EQ(lantern(R"("unknown": [1], "warmth": null, "wick": null, "mount": null, "spares": null,
                         "shade": null, "fuel": null, "count": null, "ageDecades": null)"),
        fresh);
}

TEST(FieldTables, AGivenRecordStartsFromItsOwnDefaultsAndNotFromTheOwners) {
    EXPECT_EQ(lantern(R"("wick": {"height": 3})").wick, (Wick{3, "bee"}));
}

TEST(FieldTables, ClampsWhatItIsToldToClamp) {
    const struct {
        const char* json;
        Lantern expected;
    } cases[] = {
        {R"("warmth": 7)", {.startSec = 1, .warmthFraction = 1}},
        {R"("warmth": -7)", {.startSec = 1, .warmthFraction = 0}},
        {R"("ageYears": 0)", {.startSec = 1, .ageYears = 1}},
        {R"("ageDecades": 4)", {.startSec = 1, .ageYears = 40}},
        {R"("ageDecades": 4, "ageYears": 5)", {.startSec = 1, .ageYears = 5}},
        {R"("count": -3)", {.startSec = 1, .count = 1}},
        {R"("glass": {"thickness": "thin"})", {.startSec = 1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        EXPECT_EQ(lantern(c.json), c.expected);
    }
    const Lantern wild{.warmthFraction = std::numeric_limits<double>::quiet_NaN(), .ageYears = -1};
    EXPECT_EQ(clampedByTable(wild), (Lantern{.warmthFraction = 0, .ageYears = 1}));
}

TEST(FieldTables, ReadsAndWritesEveryForm) {
    const struct {
        const char *json, *written;
    } cases[] = {
        {R"("falloff": "wobbly")", R"("falloff":"soft",)"},
        {R"("falloff": "sharp")", ""},
        {R"("mount": "floor")", R"("mount":"floor",)"},
        {R"("spares": ["soy", {"height": 8, "wax": "bee"}, {"height": 9}])",
            R"("spares":["soy","bee",{"height":9,"wax":"bee"}],)"},
        {R"("stock": {"a": 1})", ""},
        {R"("stock": {"b": 2, "a": 1})", R"("stock":{"a":1,"b":2},)"},
        {R"("shade": {"kind": "glass", "thickness": 4})", R"("shade":{"kind":"glass","thickness":4},)"},
        {R"("shade": {"kind": "wick"})", R"("shade":{"kind":"wick","wick":"bee"},)"},
        {R"("shade": {"kind": "paper", "thickness": 4})", R"("shade":{"kind":"paper"},)"},
        {R"("shade": {})", R"("shade":{"kind":""},)"},
        {R"("fuel": {"burns": "wax", "wick": "soy"})", R"("fuel":{"burns":"wax","wick":"soy"},)"},
        {R"("extra": {"a": [1, null, "x"]})", R"("extra":{"a":[1,null,"x"]},)"},
        {R"("count": 9007199254740993)", R"("count":9007199254740993,)"},
        {R"("count": 3e2)", R"("count":300,)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        const Lantern read = lantern(c.json);
        Json expected = parseJson(
            R"({"start":1,"warmth":0.3,)" + std::string(c.written) + R"("wick":{"height":12,"wax":"soy"}})");
        EXPECT_EQ(Codec<Lantern>::write(read), expected);
    }
    EXPECT_EQ(decodeJson<Pair>("[1, 2, 3]"), (Pair{1, 2}));
    EXPECT_EQ(Codec<Pair>::write({1, 2}), (JsonArray{1, 2}));
}

TEST(FieldTables, SaysWhichKeyIsWrongAndHow) {
    using Kind = DecodingError::Kind;
    const struct {
        const char* json;
        Kind kind;
        const char *path, *message;
    } cases[] = {
        {"[]", Kind::typeMismatch, "", "The document must be an object, but is a list."},
        {"{}", Kind::keyNotFound, "start", "\"start\" is missing, but it is required; add the key."},
        {R"({"start": null})", Kind::valueNotFound, "start",
            "\"start\" is null, but it is required; give it a value."},
        {R"({"start": "soon"})", Kind::typeMismatch, "start", "\"start\" must be a number, but is text."},
        {R"({"start": true})", Kind::typeMismatch, "start", "\"start\" must be a number, but is a boolean."},
        {R"({"start": 0, "falloff": 3})", Kind::typeMismatch, "falloff",
            "\"falloff\" must be text, but is a number."},
        {R"({"start": 0, "mount": "roof"})", Kind::dataCorrupted, "mount",
            "Unknown mount \"roof\" — must be one of wall, floor."},
        {R"({"start": 0, "spares": [{}, {"height": []}]})", Kind::typeMismatch, "spares[1].height",
            "\"spares[1].height\" must be a number, but is a list."},
        {R"({"start": 0, "spares": ["a", null]})", Kind::valueNotFound, "spares[1]",
            "\"spares[1]\" must be text, but is null."},
        {R"({"start": 0, "stock": {"a.b": 0.5}})", Kind::typeMismatch, "stock.a.b",
            "\"stock.a.b\" must be a whole number of at most 64 bits, but is 0.5."},
        {R"({"start": 0, "count": 1e19})", Kind::typeMismatch, "count",
            "\"count\" must be a whole number of at most 64 bits, but is 1e+19."},
        {R"({"start": 0, "fuel": {}})", Kind::keyNotFound, "fuel.burns",
            "\"fuel.burns\" is missing, but it is required; add the key."},
        {R"({"start": 0, "fuel": {"burns": "oil"}})", Kind::dataCorrupted, "fuel.burns",
            "Unknown fuel \"oil\" — must be one of wax, glass."},
        {R"({"start": 0, "fuel": {"burns": 1}})", Kind::typeMismatch, "fuel.burns",
            "\"fuel.burns\" must be text, but is a number."},
        {R"({"start": 0, "fuel": {"burns": "wax"}})", Kind::keyNotFound, "fuel.wick",
            "\"fuel.wick\" is missing, but it is required; add the key."},
        {R"({"start": 0, "shade": 1})", Kind::typeMismatch, "shade",
            "\"shade\" must be an object, but is a number."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        try {
            decodeJson<Lantern>(c.json);
            ADD_FAILURE() << "nothing failed";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), c.kind);
            EXPECT_EQ(error.path(), c.path);
            EXPECT_EQ(error.message(), c.message);
        }
    }
    EXPECT_THROW(decodeJson<Pair>("[1]"), DecodingError);
    EXPECT_THROW(decodeJson<Pair>(R"({"first": 1, "second": 2})"), DecodingError);
}

TEST(FieldTables, DescribeThemselves) {
    const Json schema = schemaOf<Lantern>("Lantern");
    const Json& record = *schema.find("$defs")->find("Lantern");
    EXPECT_EQ(*record.find("required"), (JsonArray{"start"}));
    const Json& keys = *record.find("properties");
    EXPECT_EQ(*keys.find("start"), (JsonObject{{"description", "When it lights."}, {"type", "number"}}));
    EXPECT_EQ(*keys.find("warmth"),
        (JsonObject{{"default", 0.3}, {"maximum", 1}, {"minimum", 0}, {"type", "number"}}));
    EXPECT_EQ(*keys.find("ageYears"), (JsonObject{{"minimum", 1}, {"type", "number"}}));
    EXPECT_EQ(*keys.find("falloff"),
        (JsonObject{{"default", "sharp"}, {"enum", JsonArray{"soft", "sharp"}}, {"type", "string"}}));
    const Json& fuels = *schema.find("$defs")->find("Fuel")->find("anyOf");
    EXPECT_EQ(*(*fuels.array())[0].find("properties")->find("burns"), (JsonObject{{"const", "wax"}}));
}

}   // namespace
}   // namespace tavix
