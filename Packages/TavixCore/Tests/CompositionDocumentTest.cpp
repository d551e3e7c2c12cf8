#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/FrozenDocument.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tavix {
namespace {

// A document of one scene with one layer.
std::string withLayer(const std::string& layer) { return R"({"scenes": [{"layers": [)" + layer + "]}]}"; }

CompositionLayer layerFrom(const std::string& layer) {
    return decodeJson<CompositionSpec>(withLayer(layer)).scenes[0].layers[0];
}

// What a value reads as and writes back, as one line of JSON.
template <class T> Json rewritten(const std::string& json) { return Codec<T>::write(decodeJson<T>(json)); }

TEST(CompositionDocument, AnEmptyObjectIsTheDefaultDocument) {
    const auto spec = decodeJson<CompositionSpec>("{}");
    EXPECT_EQ(spec, CompositionSpec{});
    EXPECT_EQ(encodedJson(spec), R"({
  "background" : {
    "color" : {
      "a" : 1,
      "b" : 0,
      "g" : 0,
      "r" : 0
    },
    "kind" : "solid"
  },
  "output" : {
    "fps" : 60,
    "heightPx" : 1080,
    "widthPx" : 1920
  },
  "scenes" : [],
  "schemaVersion" : 1
})");
}

TEST(CompositionDocument, RefusesWithTheKeyAndTheReason) {
    using Kind = DecodingError::Kind;
    const struct {
        std::string json;
        Kind kind;
        const char *path, *message;
    } cases[] = {
        {withLayer("{}"), Kind::dataCorrupted, "scenes[0].layers[0].kind",
            "Unknown layer kind \"\" — must be one of text, device, image, video, shape, fill."},
        {withLayer(R"({"kind": null})"), Kind::dataCorrupted, "scenes[0].layers[0].kind",
            "Unknown layer kind \"\" — must be one of text, device, image, video, shape, fill."},
        {withLayer(R"({"kind": "Text", "text": {}})"), Kind::dataCorrupted, "scenes[0].layers[0].kind",
            "Unknown layer kind \"Text\" — must be one of text, device, image, video, shape, fill."},
        {withLayer(R"({"kind": "text", "tracks": [{"property": "z", "keyframes": []}]})"),
            Kind::dataCorrupted, "scenes[0].layers[0].tracks[0].property",
            "Unknown track property \"z\" — must be one of opacity, x, y, scale, scaleX, scaleY, "
            "rotationDeg, "
            "skewXDeg, skewYDeg, blur."},
        {withLayer(R"({"kind": "text", "tracks": [{}]})"), Kind::keyNotFound,
            "scenes[0].layers[0].tracks[0].property",
            "\"scenes[0].layers[0].tracks[0].property\" is missing, but it is required; add the key."},
        {withLayer(R"({"kind": "image"})"), Kind::keyNotFound, "scenes[0].layers[0].image",
            "\"scenes[0].layers[0].image\" is missing, but it is required; add the key."},
        {withLayer(R"({"kind": "video", "video": null})"), Kind::valueNotFound, "scenes[0].layers[0].video",
            "\"scenes[0].layers[0].video\" is null, but it is required; give it a value."},
        {withLayer(R"({"kind": "fill"})"), Kind::keyNotFound, "scenes[0].layers[0].fill",
            "\"scenes[0].layers[0].fill\" is missing, but it is required; add the key."},
        {withLayer(R"({"kind": "shape", "position": {"x": 1}})"), Kind::keyNotFound,
            "scenes[0].layers[0].position.y",
            "\"scenes[0].layers[0].position.y\" is missing, but it is required; add the key."},
        {withLayer(R"({"kind": "shape", "fromMark": 3})"), Kind::typeMismatch, "scenes[0].layers[0].fromMark",
            "\"scenes[0].layers[0].fromMark\" must be text, but is a number."},
        {R"({"output": {"widthPx": 29.97}})", Kind::typeMismatch, "output.widthPx",
            "\"output.widthPx\" must be a whole number of at most 64 bits, but is 29.97."},
        {R"({"background": {"color": {"r": 0, "g": 0, "b": 0, "a": 1}}})", Kind::keyNotFound,
            "background.kind", "\"background.kind\" is missing, but it is required; add the key."},
        {R"({"background": {"kind": "plasma"}})", Kind::dataCorrupted, "background.kind",
            "Unknown background kind \"plasma\" — must be one of image, solid, gradient."},
        {R"({"background": {"kind": "solid", "color": "#fff"}})", Kind::typeMismatch, "background.color",
            "\"background.color\" must be an object, but is text."},
        {R"({"background": {"kind": "solid", "color": {"r": 0, "g": 0, "b": 0}}})", Kind::keyNotFound,
            "background.color.a", "\"background.color.a\" is missing, but it is required; add the key."},
        {R"({"background": {"kind": "gradient", "gradient": {"angleDegrees": 3}}})", Kind::keyNotFound,
            "background.gradient.stops",
            "\"background.gradient.stops\" is missing, but it is required; add the key."},
        {R"({"scenes": {}})", Kind::typeMismatch, "scenes", "\"scenes\" must be a list, but is an object."},
        {R"({"fonts": {"head": 1}})", Kind::typeMismatch, "fonts.head",
            "\"fonts.head\" must be text, but is a number."},
        {"[]", Kind::typeMismatch, "", "The document must be an object, but is a list."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        try {
            decodeJson<CompositionSpec>(c.json);
            ADD_FAILURE() << "nothing failed";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.kind(), c.kind);
            EXPECT_EQ(error.path(), c.path);
            EXPECT_EQ(error.message(), c.message);
        }
    }
}

TEST(CompositionDocument, LayersDefaultTheirPayloadWhereTheyMay) {
    EXPECT_EQ(layerFrom(R"({"kind": "shape"})"), (CompositionLayer{.content = ShapeContent{}}));
    EXPECT_EQ(layerFrom(R"({"kind": "text"})"), (CompositionLayer{.content = TextContent{}}));
    EXPECT_EQ(layerFrom(R"({"kind": "device", "text": {"text": 5}})"),
        (CompositionLayer{.content = DeviceContent{}}));
    EXPECT_EQ(
        std::get<ShapeContent>(layerFrom(R"({"kind": "shape"})").content).fill, ShapeFill(RGBAColor::white));
}

TEST(CompositionDocument, MayHoldMillionsOfValues) {
    std::string numbers = "0";
    for (int i = 0; i < 3'000'000; ++i) numbers += ",0";
    EXPECT_NO_THROW(decodeJson<CompositionSpec>(R"({"unknown": [)" + numbers + "]}"));
}

TEST(CompositionDocument, WritesLeanly) {
    const struct {
        const char *read, *written;
    } layers[] = {
        {R"({"kind": "fill", "fill": {"kind": "image"}})",
            R"({"kind": "fill", "fill": {"kind": "image", "image": {}}, "position": {"x": 960, "y": 540}})"},
        {R"({"kind": "image", "image": {}, "opacity": 1, "fromSec": 0, "tracks": [], "effects": []})",
            R"({"kind": "image", "image": {"path": "", "cornerRadiusFraction": 0},
                "position": {"x": 960, "y": 540}})"},
        {R"({"kind": "video", "video": {"trimStartSec": 0, "trimStartMark": "x", "fit": "zoom"}, "opacity": 0.5,
             "fromSec": 2, "position": {"x": 0, "y": 0}})",
            R"({"kind": "video", "video": {"path": "", "fit": "cover"}, "opacity": 0.5, "fromSec": 2,
                "position": {"x": 0, "y": 0}})"},
        {R"({"kind": "video", "video": {"holdLastFrame": false, "trimEndSec": 0}, "toBeat": 0})",
            R"({"kind": "video", "video": {"path": "", "fit": "cover", "holdLastFrame": false, "trimEndSec": 0},
                "position": {"x": 960, "y": 540}, "toBeat": 0})"},
    };
    for (const auto& c : layers) {
        SCOPED_TRACE(c.read);
        EXPECT_EQ(rewritten<CompositionLayer>(c.read), parseJson(c.written));
    }
    EXPECT_EQ(rewritten<CompositionKeyframe>(R"({"ease": {"kind": "wobble"}})"),
        parseJson(R"({"t": 0, "value": 0})"));
    EXPECT_EQ(rewritten<MusicBed>(R"({"firstBeatSec": 0})"),
        parseJson(R"({"path": "", "gain": 0.7, "startAtSec": 0, "fadeInSec": 0, "fadeOutSec": 1.5})"));
    EXPECT_EQ(rewritten<CompositionAudio>(R"({"cues": []})"), JsonObject{});
    EXPECT_EQ(rewritten<CompositionScene>("{}"), parseJson(R"({"durationSec": 0, "layers": []})"));
}

TEST(CompositionDocument, ClampsLoudnessTimesAndStrengths) {
    EXPECT_EQ(decodeJson<MusicBed>(R"({"gain": -1, "startAtSec": -1, "fadeInSec": -1, "fadeOutSec": -1,
                                       "firstBeatSec": -1, "bpm": -1})"),
        (MusicBed{
            .gain = 0, .startAtSec = 0, .fadeInSec = 0, .fadeOutSec = 0, .bpm = -1, .firstBeatSec = 0}));
    EXPECT_EQ(decodeJson<SoundCue>(R"({"gain": -1, "atSec": -1})"), (SoundCue{.atSec = -1, .gain = 0}));
    EXPECT_EQ(decodeJson<TransitionParams>(R"({"amplitude": 1, "speed": 1000, "rotation": -1})"),
        TransitionParams(5, 120, 0, std::nullopt));
    EXPECT_EQ(TransitionParams(1, 1000, -1, 9), TransitionParams(5, 120, 0, 2.5));
}

TEST(CompositionDocument, UnknownWordsFallBackWhereTheyMay) {
    EXPECT_EQ(decodeJson<SceneTransition>(R"({"style": "teleport"})").style, TransitionStyle::fade);
    EXPECT_EQ(decodeJson<ShapeContent>(R"({"shape": "star"})").shape, ShapeKind::rect);
    EXPECT_EQ(decodeJson<ShapeFill>(R"({"kind": "plasma"})"), ShapeFill(RGBAColor::white));
    EXPECT_EQ(decodeJson<ShapeFill>("{}"), ShapeFill(RGBAColor::white));
    EXPECT_EQ(decodeJson<ShapeFill>(R"({"kind": "gradient"})"), ShapeFill(LinearGradient::standard()));
    EXPECT_EQ(decodeJson<BackgroundFill>(R"({"kind": "image"})"), BackgroundFill(BackgroundImage{}));
}

TEST(CompositionDocument, KeepsUnknownEffectsByName) {
    const std::string layer = R"({"kind": "shape", "effects": [{"kind": "sepia", "warmth": 3}, {}]})";
    const CompositionLayer read = layerFrom(layer);
    EXPECT_EQ(read.effects, (std::vector<LayerEffect>{UnknownEffect{"sepia"}, UnknownEffect{""}}));
    EXPECT_EQ(kindName(read.effects[0]), "sepia");
    EXPECT_EQ(*Codec<CompositionLayer>::write(read).find("effects"),
        parseJson(R"([{"kind": "sepia"}, {"kind": ""}])"));
    EXPECT_EQ(rewritten<LayerEffect>(R"({"kind": "noise", "seed": 0})"),
        parseJson(R"({"kind": "noise", "amount": 0.08})"));
}

TEST(LayerEffect, TellsItsParametersAndTheirRanges) {
    EXPECT_EQ(params(TintEffect{.intensity = 0.25}), (std::vector<EffectParam>{{"intensity", 0.25}}));
    EXPECT_EQ(params(NoiseEffect{0.1, 7}), (std::vector<EffectParam>{{"amount", 0.1}, {"seed", 7}}));
    EXPECT_TRUE(params(DuotoneEffect{}).empty());
    EXPECT_TRUE(params(UnknownEffect{"sepia"}).empty());
    EXPECT_EQ(legalRanges("colorControls"),
        (std::vector<EffectRange>{{"brightness", -0.5, 0.5}, {"contrast", 0.25, 4}, {"saturation", 0, 3}}));
    EXPECT_EQ(legalRanges("noise"), (std::vector<EffectRange>{{"amount", 0, 0.3}}));
    for (const char* kind : {"duotone", "sepia", ""}) EXPECT_TRUE(legalRanges(kind).empty()) << kind;
    // Every default of every kind lies where it is meant to.
    for (const std::string_view kind : effectKinds()) {
        const auto effect = decodeValue<LayerEffect>(JsonObject{{"kind", kind}});
        EXPECT_EQ(kindName(effect), kind);
        for (const EffectRange& range : legalRanges(kind))
            for (const EffectParam& param : params(effect))
                EXPECT_TRUE(
                    param.name != range.param || (range.min <= param.value && param.value <= range.max));
    }
    EXPECT_EQ(effectKinds().size(), 9u);
}

TEST(LayerContent, NamesItsKinds) {
    EXPECT_EQ(
        layerKinds(), (std::vector<std::string_view>{"text", "device", "image", "video", "shape", "fill"}));
    EXPECT_EQ(kindName(LayerContent(BackgroundFill(RGBAColor::white))), "fill");
}

TEST(MarkRef, IsABareTextWhereItCanBe) {
    const struct {
        const char *read, *written;
    } cases[] = {
        {R"("tap")", R"("tap")"},
        {R"({"mark": "tap"})", R"("tap")"},
        {R"({"mark": "tap", "offsetSec": 0, "clip": null})", R"("tap")"},
        {"{}", R"("")"},
        {R"({"mark": "tap", "offsetSec": -0.5})", R"({"mark": "tap", "offsetSec": -0.5})"},
        {R"({"clip": "a.mov"})", R"({"mark": "", "clip": "a.mov"})"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.read);
        EXPECT_EQ(rewritten<MarkRef>(c.read), parseJson(c.written));
    }
}

TEST(SoundCue, KnowsTheSoundsOfTheCatalog) {
    EXPECT_EQ(SoundCue{}.resolvedSound(), SFXCatalog::Sound::whoosh);
    EXPECT_EQ(SoundCue{.sound = "ding"}.resolvedSound(), SFXCatalog::Sound::ding);
    EXPECT_FALSE(SoundCue{.sound = "fx/pop.wav"}.resolvedSound());
    EXPECT_FALSE(SoundCue{.sound = "Ding"}.resolvedSound());
}

TEST(CompositionScene, HasANameToShow) {
    EXPECT_EQ(CompositionScene{}.displayName(2), "scene-2");
    EXPECT_EQ(CompositionScene{.id = "intro"}.displayName(2), "intro");
}

TEST(CompositionDocument, SeedsKeepAllTheirBits) {
    const auto spec = decodeJson<CompositionSpec>(R"({"seed": -9223372036854775807})");
    EXPECT_EQ(spec.seed, -9223372036854775807);
    EXPECT_NE(encodedJson(spec).find("\"seed\" : -9223372036854775807"), std::string::npos);
}

// Frozen: whoever renames a key, moves a default or changes a rule for writing sees it here.
TEST(CompositionDocument, TheDocumentThatUsesEverythingStays) {
    const std::string everything = frozen::document("everything.tavixcomp.json");
    EXPECT_EQ(encodedJson(decodeJson<CompositionSpec>(everything)) + "\n", everything);
    // Names of device animations do not outlive the reading of a whole document.
    const std::string named = frozen::document("named-device.json");
    EXPECT_EQ(encodedJson(decodeJson<DeviceContent>(named)) + "\n", named);
    frozen::expectEveryKey(
        schemaOf<CompositionSpec>("composition"), {parseJson(everything), parseJson(named)});
}

}   // namespace
}   // namespace tavix
