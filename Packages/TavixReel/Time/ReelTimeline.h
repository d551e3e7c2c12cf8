// The clocks of a reel. The pre-cut clock counts seconds from where the reel's trim of the recording starts;
// documents speak in it. The composition clock counts seconds of the finished reel: what is cut out is gone,
// what is retimed is longer or shorter, and title cards stand between.
#pragma once

#include "TavixReel/Document/TitleCard.h"
#include "TavixReel/Time/RetimePlan.h"

#include <cstddef>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace tavix {

struct EffectsSpec;

namespace ReelTimeline {

struct CardSegment {
    std::size_t index = 0;     // in the document's title cards
    double insertionSec = 0;   // pre-cut clock
    double durationSec = 0;
    bool operator==(const CardSegment&) const = default;
};

using ReelSegment = std::variant<RetimedSegment, CardSegment>;

// Where a time of the finished reel lies.
struct FootageTime {
    double originalSeconds = 0;   // pre-cut clock
    bool operator==(const FootageTime&) const = default;
};
struct CardTime {
    std::size_t index = 0;
    double localSeconds = 0;   // since the card began
    bool operator==(const CardTime&) const = default;
};
using SegmentTime = std::variant<FootageTime, CardTime>;

// The cards that have a length, in the order in which they are shown, each put into 0 to the duration.
std::vector<CardSegment> resolvedCards(std::span<const TitleCard> cards, double preCutDurationSec);

// Footage and cards in the order of the finished reel. A card divides the footage that it stands in; one that
// stands in a dropped range comes where the next kept footage begins.
std::vector<ReelSegment> segments(std::span<const TimeRangeSec> keptRanges,
    std::span<const RetimeSegment> retime, std::span<const CardSegment> cards);
// All of the above for a document over that much of its recording.
std::vector<ReelSegment> segmentsOf(const EffectsSpec& spec, double preCutDurationSec);

double durationSec(const ReelSegment& segment);
double outputDurationSec(std::span<const ReelSegment> segments);

// When, on the composition clock, footage follows footage with something cut out between them.
std::vector<double> cutSeamsSec(std::span<const ReelSegment> segments);

// A boundary belongs to the later of its segments; times outside are those of the nearer end.
SegmentTime locate(double compositionSec, std::span<const ReelSegment> segments);

// Within a card the pre-cut clock stands still at the card's insertion.
double preCutSec(double forCompositionSec, std::span<const ReelSegment> segments);
// A time that is cut out gives where the next kept footage begins; a card's insertion gives the card's start.
double compositionSec(double forPreCutSec, std::span<const ReelSegment> segments);

std::optional<TimeRangeSec> compositionRange(std::size_t ofCard, std::span<const ReelSegment> segments);

}   // namespace ReelTimeline

}   // namespace tavix
