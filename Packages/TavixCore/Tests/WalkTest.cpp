// Walking documents and addressing what is in them.
#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Document/PixelScaling.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Paths/Limits.h"
#include "TavixCore/Paths/RowFilter.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tavix {
namespace {

// "scenes[0].id" as "/scenes/0/id".
JsonPointer pointerOf(const std::string& path) {
    JsonPointer pointer;
    std::string token;
    const auto end = [&] {
        if (!token.empty()) pointer = pointer / token;
        token.clear();
    };
    for (const char c : path) {
        if (c == '.' || c == '[' || c == ']')
            end();
        else
            token += c;
    }
    end();
    return pointer;
}

CompositionSpec randomComposition(SeededRandom& dice) {
    static const SchemaDocument schema(schemaOf<CompositionSpec>("T"));
    return decodeValue<CompositionSpec>(schema.random(dice, SchemaDocument::Manner::tame));
}

// What is met at a path is what the written document has there, and what the path leads to.
TEST(Walking, MeetsTheDocumentAsItIsWritten) {
    SeededRandom dice("walk");
    std::size_t met = 0;
    for (int i = 0; i < 40; ++i) {
        CompositionSpec spec = randomComposition(dice);
        spec.fonts.clear();   // keys of the author's, with dots in them
        const Json written = Codec<CompositionSpec>::write(spec);
        walk(std::as_const(spec), [&](const Place& place) {
            const JsonPointer pointer = pointerOf(place.at.text());
            const Json value = writeValue(place.type, place.value);
            if (const Json* there = find(written, pointer);
                there && (place.type.kind != Type::Kind::record || *there == value)) {
                ++met;
                // A union and its alternative stand at one path; the union is met first.
                if (place.type.kind != Type::Kind::choice) {
                    EXPECT_EQ(*there, value) << pointer.text();
                }
            }
            const Located found = locate(typeOf<CompositionSpec>(), &spec, pointer);
            EXPECT_TRUE(found) << pointer.text();
            return Walk::into;
        });
    }
    EXPECT_GT(met, 2000u);
}

// A name that the reference sends to a catalog for is known as such to those who walk.
TEST(Walking, KnowsNamesOfTheCatalog) {
    const std::map<std::string_view, std::set<Role>> catalogs{{"devices", {Role::device}},
        {"backgrounds", {Role::background}}, {"kinetic", {Role::textAnimation}}, {"fonts", {Role::font}},
        {"sounds", {Role::sound}}};
    std::set<std::string_view> met;
    SeededRandom dice("catalogs");
    for (int i = 0; i < 300; ++i) {
        const CompositionSpec spec = randomComposition(dice);
        walk(spec, [&](const Place& place) {
            if (!place.row || place.type.kind == Type::Kind::word) return Walk::into;
            for (const auto& [catalog, roles] : catalogs) {
                if (place.row->meaning.find("tavix presets " + std::string(catalog)) ==
                    std::string_view::npos)
                    continue;
                met.insert(catalog);
                EXPECT_TRUE(roles.contains(place.row->role)) << place.at.text();
            }
            return Walk::into;
        });
    }
    for (const auto& [catalog, roles] : catalogs) EXPECT_TRUE(met.contains(catalog)) << catalog;
}

// Every value of the written form is met, but for the tags of unions.
TEST(Walking, LeavesNothingOut) {
    SeededRandom dice("whole");
    for (int i = 0; i < 20; ++i) {
        CompositionSpec spec = randomComposition(dice);
        spec.fonts.clear();
        std::set<std::string> paths;
        walk(std::as_const(spec), [&](const Place& place) {
            paths.insert(pointerOf(place.at.text()).text());
            return Walk::into;
        });
        const auto look = [&](const auto& self, const Json& json, const JsonPointer& at) -> void {
            EXPECT_TRUE(paths.contains(at.text()) || at.tokens().back() == "kind") << at.text();
            if (const JsonObject* members = json.object())
                for (const JsonMember& member : *members) self(self, member.value, at / member.key);
            if (const JsonArray* elements = json.array())
                for (std::size_t e = 0; e < elements->size(); ++e) self(self, (*elements)[e], at / e);
        };
        look(look, Codec<CompositionSpec>::write(spec), {});
    }
}

// A filtered walk meets what a full one does, of the rows that are wanted.
TEST(Walking, ByAFilterMissesNothingThatIsWanted) {
    const RowFilter timed(typeOf<CompositionSpec>(), isByMark);
    SeededRandom dice("filter");
    std::size_t wanted = 0;
    for (int i = 0; i < 60; ++i) {
        const CompositionSpec spec = randomComposition(dice);
        std::vector<std::string> all, filtered;
        std::size_t met = 0, metFiltered = 0;
        const auto into = [&](std::vector<std::string>& paths, std::size_t& count) {
            return [&](const Place& place) {
                ++count;
                if (place.row && timed.wants(*place.row)) paths.push_back(place.at.text());
                return Walk::into;
            };
        };
        const auto full = into(all, met), some = into(filtered, metFiltered);
        walkValue(typeOf<CompositionSpec>(), &spec, KeyPath(), Visitor<Place>(full));
        walkValue(typeOf<CompositionSpec>(), &spec, KeyPath(), Visitor<Place>(some), &timed);
        EXPECT_LE(metFiltered, met);
        EXPECT_EQ(filtered, all);
        wanted += all.size();
    }
    EXPECT_GT(wanted, 20u);
}

TEST(Walking, MayChangeWhatItMeets) {
    SeededRandom dice("change");
    CompositionSpec spec = randomComposition(dice);
    spec.scenes.push_back({.id = "old", .transition = SceneTransition{}});
    walk(spec, [](const MutablePlace& place) {
        if (auto* id = place.as<std::string>(); id && place.row && place.row->key == "id") *id = "new";
        return place.as<SceneTransition>() ? Walk::over : Walk::into;
    });
    EXPECT_EQ(spec.scenes.back().id, "new");
    std::size_t transitions = 0, inside = 0;
    walk(std::as_const(spec), [&](const Place& place) {
        transitions += place.as<SceneTransition>() ? 1 : 0;
        inside += place.ownerAs<SceneTransition>() ? 1 : 0;
        return place.as<SceneTransition>() ? Walk::over : Walk::into;
    });
    EXPECT_GT(transitions, 0u);
    EXPECT_EQ(inside, 0u);   // it was told to go past them
}

TEST(Walking, FindsAMemberOfARecordByItsPointer) {
    CompositionSpec spec;
    spec.scenes.resize(2);
    spec.scenes[1].layers.push_back({.content = TextContent{.text = "hello"}});
    const auto at = [](const char* text) { return JsonPointer::parse(text); };
    EXPECT_EQ((valueAt<CompositionSpec, std::string>(spec, at("/scenes/1/layers/0/text/text"))),
        &std::get<TextContent>(spec.scenes[1].layers[0].content).text);
    for (const char* nowhere : {"/scenes/2", "/scenes/01", "/scenes/-", "/scenes/1/layers/0/shape",
             "/scenes/1/layers/0/enter/scale", "/scene", "/scenes/1/layers/0/kind"})
        EXPECT_FALSE(locate(typeOf<CompositionSpec>(), &spec, at(nowhere))) << nowhere;
}

// A record of another product, with a length and a point in pixels.
struct Sticker {
    PixelPoint corner{10, 20};
    double borderPx = 3, opacity = 0.5;
    bool operator==(const Sticker&) const = default;
};
const Fields<Sticker>& fieldsOf(std::type_identity<Sticker>) {
    static const Fields<Sticker> table{
        "Sticker", {field<&Sticker::corner>("corner", "").as(Role::pixelPoint),
                       field<&Sticker::borderPx>("borderPx", "").as(Role::pixelLength),
                       field<&Sticker::opacity>("opacity", "").legal(0, 1)}};
    return table;
}

TEST(Walking, ScalesWhateverIsInPixels) {
    Sticker sticker;
    scalePixels(typeOf<Sticker>(), &sticker, 2, 3);
    EXPECT_EQ(sticker, (Sticker{{20, 60}, 9, 0.5}));
}

TEST(Limits, AreThoseOfTheMembersOwnRow) {
    Sticker sticker{.borderPx = 50, .opacity = 7};
    EXPECT_EQ(withinLimits(sticker, sticker.opacity), 1);
    EXPECT_EQ(withinLimits(sticker, sticker.borderPx), 50);
    sticker.opacity = -7;
    EXPECT_EQ(withinLimits(sticker, sticker.opacity), 0);
}

}   // namespace
}   // namespace tavix
