// Any bytes are a document of the reel path or a failure with a sentence; what could be read is written and
// read again the same. A flow can be judged, a sidecar made into a reel, and a reel's clocks never go astray.
// The first byte says which document the others are.
#include "TavixCore/Support/Document.h"
#include "TavixCore/Theme/BrandKit.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReel/Camera/ReelCamera.h"
#include "TavixReel/Captions/CaptionAuthor.h"
#include "TavixReel/Cards/TypographyAuthor.h"
#include "TavixReel/Choreography/SideCaptionChoreography.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Lint/FlowSpecLint.h"
#include "TavixReel/Time/ReelTimeline.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace {

using namespace tavix;

void demand(bool holds) {
    if (!holds) std::abort();
}

template <class T> std::optional<T> read(std::string_view bytes) {
    try {
        return decodeJson<T>(bytes);
    } catch (const DecodingError& error) {
        demand(error.message().ends_with('.'));
        return std::nullopt;
    }
}

template <class T> std::optional<T> readTwice(std::string_view bytes) {
    auto value = read<T>(bytes);
    if (!value) return value;
    const std::string written = encodedJson(*value);
    const auto again = read<T>(written);
    demand(again.has_value() && encodedJson(*again) == written);
    return value;
}

void judgeFlow(const FlowSpec& flow) {
    for (const auto& finding : FlowSpecLint::lint(flow)) demand(!finding.message.empty());
    FlowSpecLint::summary(flow);
    EffectsSpec spec;
    spec.output = outputOf(ReelFormat::horizontal, 0, 0, 30);
    Timeline timeline{{100, 200, 30}, {}};
    for (const Step& step : flow.steps)
        timeline.events.push_back(
            {step.index, "tap", double(timeline.events.size()), PixelRect{5, 5, 9, 9}, {}, {}, {}});
    spec.narration =
        CaptionAuthor::author(&flow, timeline, MotionSpec::smoothGlide, {}, ProvidedCopySource());
    TypographyAuthor::apply(spec, TypographyResolver::build(&flow, {}), &flow, timeline);
    spec.sideCaptions.emplace();
    SideCaptionChoreography::replanForLandscape(spec);
}

void playReel(const EffectsSpec& spec) {
    constexpr double recordedSec = 60;
    const auto segments = ReelTimeline::segmentsOf(spec, recordedSec);
    const double total = ReelTimeline::outputDurationSec(segments);
    demand(total >= 0);
    for (int i = 0; i <= 4; ++i) {
        const double preCut = ReelTimeline::preCutSec(total * i / 4, segments);
        demand(preCut >= 0 && preCut <= recordedSec + 1e-6);
    }
    // A path of hours at a thousand frames a second would take the memory of the test, not of the product.
    if (spec.output.fps <= 120 && spec.cameraTrack.size() < 50 &&
        (spec.cameraTrack.empty() || spec.cameraTrack.back().tSec < 100))
        ReelCamera(spec).sample(1);
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 4) {
    case 0:
        if (const auto timeline = readTwice<Timeline>(bytes))
            readTwice<EffectsSpec>(encodedJson(
                EffectsAuthor::author(*timeline, {}, MotionSpec::smoothGlide, ReelFormat::vertical)));
        break;
    case 1:
        if (const auto flow = readTwice<FlowSpec>(bytes)) judgeFlow(*flow);
        break;
    case 2:
        if (const auto spec = readTwice<EffectsSpec>(bytes)) playReel(*spec);
        break;
    default: readTwice<BrandKit>(bytes); break;
    }
    return 0;
}
