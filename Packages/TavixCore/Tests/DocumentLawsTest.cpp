// Laws that hold for every record, enumeration and union of the documents, over random documents made from
// their own schemas.
#include "TavixCore/Animation/Easing.h"
#include "TavixCore/Document/Background.h"
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

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tavix {
namespace {

template <class T> class DocumentLaws : public testing::Test {};

using Records = testing::Types<CompositionSpec, CompositionScene, CompositionLayer, LayerContent, LayerEffect,
    CompositionOutput, CompositionAudio, MusicBed, SoundCue, SceneTransition, TransitionParams, PropertyTrack,
    CompositionKeyframe, MarkRef, ImageContent, VideoContent, ShapeContent, ShapeFill, BackgroundFill,
    Background, TextContent, KineticPhase, KineticStyle, KineticSelector, EmphasisSpan, TimingCurve,
    DeviceContent, DeviceScene, DeviceMockup, ScreenSource, PixelPoint, PixelRect, LogicalRect, LogicalSize,
    NormalizedPoint, NormalizedRect, NormalizedVec2, Vector3, RGBAColor, Shadow, TextShadow, FontOption,
    CaptionStyle, BrandKit>;
TYPED_TEST_SUITE(DocumentLaws, Records);

TYPED_TEST(DocumentLaws, WritingAndReadingAgainChangesNothing) {
    const SchemaDocument schema(schemaOf<TypeParam>("T"));
    SeededRandom dice("laws");
    for (int i = 0; i < 150; ++i) {
        const auto manner = i % 2 ? SchemaDocument::Manner::wild : SchemaDocument::Manner::tame;
        const Json made = schema.random(dice, manner);
        SCOPED_TRACE(writeJson(made));
        const auto value = decodeJson<TypeParam>(writeJson(made));
        const std::string written = encodedJson(value);
        ASSERT_EQ(decodeJson<TypeParam>(written), value);
        ASSERT_EQ(encodedJson(decodeJson<TypeParam>(written)), written);
    }
}

TYPED_TEST(DocumentLaws, WhatIsWrittenFollowsTheSchema) {
    const SchemaDocument schema(schemaOf<TypeParam>("T"));
    EXPECT_EQ(schema.departureOfDefaults(), "");
    SeededRandom dice("schema");
    for (int i = 0; i < 100; ++i) {
        const Json made = schema.random(dice, SchemaDocument::Manner::tame);
        ASSERT_EQ(schema.departure(made), "");
        ASSERT_EQ(schema.departure(Codec<TypeParam>::write(decodeValue<TypeParam>(made))), "")
            << writeJson(made);
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
