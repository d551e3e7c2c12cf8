// Laws that hold for every record, enumeration and union of the documents, over random documents made from
// their own schemas.
#include "TavixCore/Animation/Easing.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Project/DocumentSchemas.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"
#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixCore/Theme/FontCatalog.h"
#include "TavixCore/Values/LogicalRect.h"
#include "TavixCore/Values/LogicalSize.h"
#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixCore/Values/Shadow.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace tavix {
namespace {

// A value of any of the types below, and what the C++ type says of it.
struct Sample {
    const char* name;
    const Type& (*type)();
    std::shared_ptr<void> (*make)();
    bool (*equal)(const void* a, const void* b);
};

template <class T> Sample of(const char* name) {
    return {name, &typeOf<T>, []() -> std::shared_ptr<void> { return std::make_shared<T>(); },
        [](const void* a, const void* b) { return *static_cast<const T*>(a) == *static_cast<const T*>(b); }};
}

class DocumentLaws : public testing::TestWithParam<Sample> {
protected:
    std::shared_ptr<void> read(const Json& json) const {
        std::shared_ptr<void> value = GetParam().make();
        readValue(type, json, value.get(), KeyPath());
        return value;
    }
    std::string written(const std::shared_ptr<void>& value) const {
        return writeJson(writeValue(type, value.get()));
    }

    const Type& type = GetParam().type();
    const SchemaDocument schema{schemaOf(type, "T")};
};

INSTANTIATE_TEST_SUITE_P(EveryType, DocumentLaws,
    testing::Values(of<CompositionSpec>("CompositionSpec"), of<CompositionScene>("CompositionScene"),
        of<CompositionLayer>("CompositionLayer"), of<LayerContent>("LayerContent"),
        of<LayerEffect>("LayerEffect"), of<CompositionOutput>("CompositionOutput"),
        of<CompositionAudio>("CompositionAudio"), of<MusicBed>("MusicBed"), of<SoundCue>("SoundCue"),
        of<SceneTransition>("SceneTransition"), of<TransitionParams>("TransitionParams"),
        of<PropertyTrack>("PropertyTrack"), of<CompositionKeyframe>("CompositionKeyframe"),
        of<MarkRef>("MarkRef"), of<ImageContent>("ImageContent"), of<VideoContent>("VideoContent"),
        of<ShapeContent>("ShapeContent"), of<ShapeFill>("ShapeFill"), of<BackgroundFill>("BackgroundFill"),
        of<TextContent>("TextContent"), of<KineticPhase>("KineticPhase"), of<KineticStyle>("KineticStyle"),
        of<KineticSelector>("KineticSelector"), of<EmphasisSpan>("EmphasisSpan"),
        of<TimingCurve>("TimingCurve"), of<DeviceContent>("DeviceContent"), of<DeviceScene>("DeviceScene"),
        of<DeviceMockup>("DeviceMockup"), of<ScreenSource>("ScreenSource"), of<PixelPoint>("PixelPoint"),
        of<PixelRect>("PixelRect"), of<LogicalRect>("LogicalRect"), of<LogicalSize>("LogicalSize"),
        of<NormalizedPoint>("NormalizedPoint"), of<NormalizedRect>("NormalizedRect"),
        of<NormalizedVec2>("NormalizedVec2"), of<Vector3>("Vector3"), of<RGBAColor>("RGBAColor"),
        of<Shadow>("Shadow"), of<TextShadow>("TextShadow"), of<FontOption>("FontOption"),
        of<CaptionStyle>("CaptionStyle"), of<BrandKit>("BrandKit")),
    [](const auto& sample) { return std::string(sample.param.name); });

TEST_P(DocumentLaws, WritingAndReadingAgainChangesNothing) {
    SeededRandom dice("laws");
    for (int i = 0; i < 150; ++i) {
        const auto manner = i % 2 ? SchemaDocument::Manner::wild : SchemaDocument::Manner::tame;
        const Json made = schema.random(dice, manner);
        SCOPED_TRACE(writeJson(made));
        const auto value = read(parseJson(writeJson(made)));
        const std::string text = written(value);
        const auto again = read(parseJson(text));
        ASSERT_TRUE(GetParam().equal(again.get(), value.get())) << text;
        ASSERT_TRUE(areEqual(type, again.get(), value.get())) << text;
        ASSERT_EQ(written(again), text);
    }
}

// The keys tell all that there is of a value: what differs in C++ differs in a document.
TEST_P(DocumentLaws, ValuesAreEqualWhereTheirDocumentsAre) {
    SeededRandom dice("equal");
    auto previous = read(schema.random(dice, SchemaDocument::Manner::tame));
    for (int i = 0; i < 100; ++i) {
        const auto value = read(schema.random(dice, SchemaDocument::Manner::tame));
        ASSERT_EQ(areEqual(type, value.get(), previous.get()), GetParam().equal(value.get(), previous.get()))
            << written(value) << "\n"
            << written(previous);
        previous = value;
    }
}

TEST_P(DocumentLaws, WhatIsWrittenFollowsTheSchema) {
    EXPECT_EQ(schema.departureOfDefaults(), "");
    SeededRandom dice("schema");
    for (int i = 0; i < 100; ++i) {
        const Json made = schema.random(dice, SchemaDocument::Manner::tame);
        ASSERT_EQ(schema.departure(made), "");
        ASSERT_EQ(schema.departure(writeValue(type, read(made).get())), "") << writeJson(made);
    }
}

// Cuts a valid document at every place, and breaks it in single bytes: a finished sentence or a value.
TEST(DocumentReader, AnswersAnyDamageWithASentence) {
    const SchemaDocument schema(schemaOf<CompositionSpec>("T"));
    SeededRandom dice("damage");
    for (int i = 0; i < 40; ++i) {
        const std::string whole = writeJson(schema.random(dice, SchemaDocument::Manner::wild));
        for (int cut = 0; cut < 50; ++cut) {
            std::string text = whole;
            const auto at = static_cast<std::size_t>(dice.next() % text.size());
            if (dice.nextBool())
                text.resize(at);
            else
                text[at] = "{}[]\",:x0-"[dice.next() % 10];
            try {
                decodeJson<CompositionSpec>(text);
            } catch (const DecodingError& error) {
                const std::string message = error.message();
                EXPECT_GT(message.size(), 20u);
                EXPECT_EQ(message.back(), '.') << message;
            }
        }
    }
}

TEST(DocumentSchemas, AreCompleteAndNamedOnce) {
    std::set<std::string_view> names;
    for (const DocumentSchema& entry : documentSchemas()) {
        SCOPED_TRACE(entry.name);
        EXPECT_TRUE(names.insert(entry.name).second);
        EXPECT_EQ(documentSchema(entry.name), &entry);
        const Json schema = entry.schema();
        EXPECT_EQ(schema.find("title")->stringValue(), entry.name);
        // Every reference leads to a definition, and no key goes without an explanation.
        for (const JsonMember& definition : *schema.find("$defs")->object()) {
            const Json* properties = definition.value.find("properties");
            if (!properties) continue;
            for (const JsonMember& property : *properties->object()) {
                SCOPED_TRACE(definition.key + "." + property.key);
                EXPECT_TRUE(property.value.find("description"));
                const Json* reference = property.value.find("$ref");
                EXPECT_TRUE(!reference || schema.find("$defs")->find(reference->text()->substr(8)));
            }
        }
    }
    EXPECT_EQ(documentSchema("nonsense"), nullptr);
}

}   // namespace
}   // namespace tavix
