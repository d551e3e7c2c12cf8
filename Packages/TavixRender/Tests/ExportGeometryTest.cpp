#include "TavixRender/Export/ExportGeometry.h"
#include "RenderTestKit.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

using imaging::Size;

TEST(ExportGeometry, FitsTheShorterSideAndKeepsSidesEven) {
    const struct {
        Size native;
        ResolutionPreset resolution;
        ExportFormat format;
        Size expected;
    } cases[] = {
        {{1920, 1080}, ResolutionPreset::native, ExportFormat::video, {1920, 1080}},
        {{1921, 1081}, ResolutionPreset::native, ExportFormat::video, {1920, 1080}},
        {{1280, 720}, ResolutionPreset::p1080, ExportFormat::video, {1920, 1080}},
        {{720, 1280}, ResolutionPreset::p1080, ExportFormat::video, {1080, 1920}},
        {{1080, 1080}, ResolutionPreset::k4, ExportFormat::video, {2160, 2160}},
        {{1920, 1080}, ResolutionPreset::k4, ExportFormat::video, {3840, 2160}},
        {{1920, 1080}, ResolutionPreset::k4, ExportFormat::gif, {720, 404}},
        {{1080, 1920}, ResolutionPreset::native, ExportFormat::gif, {720, 1280}},
        {{640, 360}, ResolutionPreset::native, ExportFormat::gif, {640, 360}},
        {{1, 1}, ResolutionPreset::native, ExportFormat::video, {2, 2}},
        {{0, -5}, ResolutionPreset::native, ExportFormat::video, {2, 2}},
        {{4000, 10}, ResolutionPreset::native, ExportFormat::gif, {720, 2}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.native.width) + " × " + std::to_string(c.native.height));
        EXPECT_EQ(ReelExporter::targetDimensions(c.native, c.resolution, c.format), c.expected);
    }
}

TEST(ExportGeometry, LimitsTheRateOfAnAnimatedGif) {
    EXPECT_EQ(ReelExporter::targetFps(60, ExportFormat::video), 60);
    EXPECT_EQ(ReelExporter::targetFps(60, ExportFormat::gif), 18);
    EXPECT_EQ(ReelExporter::targetFps(12, ExportFormat::gif), 12);
    EXPECT_EQ(ReelExporter::targetFps(0, ExportFormat::video), 1);
}

TEST(ExportGeometry, ScalesWhatIsMeasuredInPixels) {
    CompositionLayer device;
    device.content = DeviceContent{};
    CompositionSpec spec = testing::specOf({1920, 1080}, 60, {testing::sceneOf(1, {device})});
    spec.scenes[0].layers[0].position = {480, 270};
    const CompositionSpec scaled = scaledExportSpec(spec, {3840, 2160}, 30);
    EXPECT_EQ(scaled.output, (CompositionOutput{3840, 2160, 30}));
    EXPECT_EQ(scaled.scenes[0].layers[0].position, (PixelPoint{960, 540}));
    EXPECT_EQ(std::get<DeviceContent>(scaled.scenes[0].layers[0].content).basePaddingPx, 2 * 82);
    EXPECT_EQ(scaledExportSpec(spec, {1920, 1080}, 60), spec);
}

// The picture of a document does not depend on the size it is exported at.
TEST(ExportGeometry, GivesTheSamePictureAtTwiceTheSize) {
    CompositionSpec spec =
        testing::specOf({64, 36}, 30, {testing::sceneOf(1, {testing::shapeLayer({1, 0, 0, 1}, 0.25, 0.5)})});
    spec.scenes[0].layers[0].position = {16, 18};
    imaging::Evaluator evaluator;
    ResolvedComposition native(spec, {}, evaluator, {});
    ResolvedComposition twice(scaledExportSpec(spec, {128, 72}, 30), {}, evaluator, {});
    const testing::Picture small(native.frame(0), {64, 36}), large(twice.frame(0), {128, 72});
    for (int y = 0; y < 36; ++y)
        for (int x = 0; x < 64; ++x) ASSERT_EQ(large.at(2 * x, 2 * y), small.at(x, y)) << x << ", " << y;
}

}   // namespace
}   // namespace tavix
