// No machine that tests run on need have the hardware: encoders of software go the same way in its place.
#include "TavixRender/Export/HardwareFilm.h"
#include "RenderTestKit.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/FilmExport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using media::HardwareEncoder;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr imaging::Size size{128, 96};

// Three scenes of colours that are nowhere alike, under a picture of noise that coarse coding loses.
class HardwareFilmTest : public ::testing::Test {
protected:
    HardwareFilmTest() {
        imaging::Evaluator evaluator;
        const auto noise = folder_ / "noise.png";
        media::writePng(
            noise, evaluator.draw(testing::testCard(size, 7), {0, 0, size.width, size.height}).view());
        CompositionLayer picture;
        ImageContent content;
        content.path = noise.string();
        content.heightFraction = 0.9;
        picture.content = content;
        picture.position = {size.width / 2.0, size.height / 2.0};
        std::vector<CompositionScene> scenes;
        for (const RGBAColor& color : {RGBAColor{1, 0, 0, 1}, RGBAColor{0, 1, 0, 1}, RGBAColor{0, 0, 1, 1}})
            scenes.push_back(testing::sceneOf(1, {testing::fillLayer(color), picture}));
        config_.spec = testing::specOf(size, 10, std::move(scenes));
        config_.output = folder_ / "film.mp4";
        config_.pieceStore = folder_ / "kept";
        config_.rate.quality = 90;
    }

    HardwareFilm::Outcome made(const HardwareEncoder& encoder) {
        config_.hardware = encoder;
        film_ = CompositionExport::filmOf(config_);
        return HardwareFilm::write(film_, {[this](PiecedFilm& film) {
            encoders_.push_back(film.file.hardware ? film.file.hardware->name : "software");
            return FilmExport::write(film, {});
        }});
    }
    bool isNothingKept() const { return !std::filesystem::exists(*config_.pieceStore); }

    testsupport::TemporaryFolder folder_;
    CompositionRenderer::Config config_;
    PiecedFilm film_;
    std::vector<std::string> encoders_;   // in the order in which they were tried
};

HardwareEncoder standIn(std::string name, std::vector<std::pair<std::string, std::string>> options = {}) {
    return {std::move(name), media::MovieCodec::h264, HardwareEncoder::Family::qsv, std::move(options)};
}

TEST_F(HardwareFilmTest, FilmOfAnEncoderThatWorksIsCheckedAndNotKept) {
    const HardwareFilm::Outcome outcome = made(standIn("libx264", {{"crf", "10"}}));
    EXPECT_THAT(outcome.refusal, IsEmpty());
    EXPECT_THAT(encoders_, ::testing::ElementsAre("libx264"));
    ASSERT_TRUE(outcome.likeness);
    EXPECT_EQ(outcome.likeness->framesDecoded, 30);
    EXPECT_GT(outcome.likeness->leastSimilarity, 0.9);
    // Chroma that lies elsewhere than the encoder thinks moves the colours of all three scenes.
    EXPECT_LT(outcome.likeness->mostColorError, 4);
    EXPECT_TRUE(film_.file.hardware);
    EXPECT_TRUE(isNothingKept());
    EXPECT_EQ(made(standIn("libx264", {{"crf", "10"}})).pieces.reused, 0);
}

TEST_F(HardwareFilmTest, FilmOfWrongPicturesIsMadeAgainWithoutThatEncoder) {
    const HardwareFilm::Outcome outcome = made(standIn("libx264", {{"x264-params", "qp=51:ipratio=1"}}));
    EXPECT_THAT(outcome.refusal, HasSubstr("did not become what was rendered"));
    EXPECT_THAT(encoders_, ::testing::ElementsAre("libx264", "software"));
    EXPECT_FALSE(film_.file.hardware);
    EXPECT_GT(FilmCheck::verify(film_, config_.output).leastSimilarity, 0.9) << "the film that stays";
    EXPECT_EQ(outcome.pieces.pieces, 3);
    EXPECT_FALSE(isNothingKept()) << "pieces made without it are kept as ever";
}

// Whatever is in the way, the film is what a render without hardware makes, byte by byte.
TEST_F(HardwareFilmTest, WithoutTheEncoderTheFilmIsTheUsualOne) {
    CompositionRenderer::Config usual = config_;
    usual.output = folder_ / "usual.mp4";
    usual.pieceStore.reset();
    CompositionExport::write(usual, {});
    const struct {
        HardwareEncoder encoder;
        const char* why;
    } cases[] = {
        {standIn("h264_of_nobody"), "FFmpeg was built without h264_of_nobody"},
        {standIn("libx264", {{"x264-params", "no-such-option=1"}, {"profile", "none"}}), "profile"},
        {standIn("gif"), "as H.264"},   // takes no such frames
        {{"h264_of_nobody", media::MovieCodec::h264, HardwareEncoder::Family::vaapi},
            "without h264_of_nobody"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.encoder.name);
        const HardwareFilm::Outcome outcome = made(c.encoder);
        EXPECT_THAT(outcome.refusal, HasSubstr(c.why));
        EXPECT_FALSE(outcome.likeness);
        EXPECT_TRUE(readBytes(config_.output) == readBytes(usual.output));
        const std::string sentence = HardwareFilm::sentenceOf(c.encoder, outcome.refusal);
        EXPECT_THAT(sentence, AllOf(HasSubstr(c.encoder.name), HasSubstr("libx264 instead.")));
        EXPECT_THAT(sentence, ::testing::Not(HasSubstr("..")));
    }
}

// A stop is no refusal.
TEST_F(HardwareFilmTest, StoppedFilmIsNotMadeAgain) {
    config_.hardware = standIn("libx264");
    film_ = CompositionExport::filmOf(config_);
    std::stop_source source;
    source.request_stop();
    int tries = 0;
    EXPECT_THROW(HardwareFilm::write(film_, {[&](PiecedFilm& film) {
        ++tries;
        return FilmExport::write(film, {}, {}, source.get_token());
    }},
                     source.get_token()),
        RenderStopped);
    EXPECT_EQ(tries, 1);
}

}   // namespace
}   // namespace tavix
