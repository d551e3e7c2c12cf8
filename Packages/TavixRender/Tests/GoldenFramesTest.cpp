// Frames of small documents, compared with pictures that a person has looked at. `Data/Golden/frames.txt`
// lists them. With TAVIX_ACCEPT_GOLDEN=1 in the environment the pictures are replaced by what is drawn now.
#include "RenderTestKit.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TestAssets.h"
#include "TestSupport/SourceTree.h"
#include "TestSupport/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using testing::Picture;

struct GoldenFrame {
    std::string document, seconds;
    int equalDifference = 0;
    double allowedShare = 0;

    std::string name() const { return document + "-" + seconds + ".png"; }
};

fs::path goldenFolder() { return testsupport::inSourceTree("Packages/TavixRender/Tests/Data/Golden"); }

std::vector<GoldenFrame> goldenFrames() {
    std::vector<GoldenFrame> frames;
    std::ifstream list(goldenFolder() / "frames.txt");
    for (std::string line; std::getline(list, line);) {
        GoldenFrame frame;
        std::istringstream words(line);
        if (line.starts_with('#') || !(words >> frame.document >> frame.seconds)) continue;
        words >> frame.equalDifference >> frame.allowedShare;
        frames.push_back(frame);
    }
    return frames;
}

imaging::Bitmap drawn(const GoldenFrame& frame, const fs::path& assets) {
    const auto spec = decodeFile<CompositionSpec>(goldenFolder() / "Documents" / (frame.document + ".json"));
    imaging::Evaluator evaluator({.comparesStructures = true});
    ResolvedComposition composition(
        spec, assets, evaluator, [](const Finding& finding) { ADD_FAILURE() << finding.message; });
    const imaging::Size size = canvasSize(spec);
    return evaluator.draw(composition.frame(std::stod(frame.seconds)), {0, 0, size.width, size.height});
}

// What differs, made eight times stronger, on black.
imaging::Bitmap differenceOf(const imaging::Bitmap& actual, const imaging::Bitmap& expected) {
    imaging::Bitmap difference(actual.size());
    for (int y = 0; y < actual.size().height; ++y)
        for (int i = 0; i < 4 * actual.size().width; ++i) {
            const int distance = std::abs(actual.view().row(y)[i] - expected.view().row(y)[i]);
            difference.view().row(y)[i] =
                static_cast<std::uint8_t>(i % 4 == 3 ? 255 : std::min(8 * distance, 255));
        }
    return difference;
}

void compare(const GoldenFrame& frame, const imaging::Bitmap& actual) {
    const imaging::Bitmap expected = media::loadStillImage(goldenFolder() / frame.name());
    ASSERT_EQ(actual.size(), expected.size());
    const int differing = Picture(actual.view()).countBeyond(Picture(expected.view()), frame.equalDifference);
    const double share = double(differing) / (actual.size().width * actual.size().height);
    if (share <= frame.allowedShare) return;
    const fs::path evidence = fs::current_path() / "golden-failures";
    fs::create_directories(evidence);
    media::writePng(evidence / ("actual-" + frame.name()), actual.view());
    media::writePng(evidence / ("expected-" + frame.name()), expected.view());
    media::writePng(evidence / ("difference-" + frame.name()), differenceOf(actual, expected).view());
    ADD_FAILURE() << 100 * share << " % of the pixels differ; see " << evidence;
}

TEST(GoldenFrames, LookAsTheyDid) {
    const std::vector<GoldenFrame> frames = goldenFrames();
    ASSERT_FALSE(frames.empty());
    const testsupport::TemporaryFolder assets;
    testing::writeTestAssets(assets.path(), 24, 8);
    fs::copy_file(goldenFolder() / "Documents" / "card.png", assets / "card.png");
    for (const GoldenFrame& frame : frames) {
        SCOPED_TRACE(frame.name());
        const imaging::Bitmap actual = drawn(frame, assets.path());
        if (std::getenv("TAVIX_ACCEPT_GOLDEN") != nullptr)
            media::writePng(goldenFolder() / frame.name(), actual.view());
        else
            compare(frame, actual);
    }
}

}   // namespace
}   // namespace tavix
