#include "TavixReel/Time/ReelTimeline.h"

#include "TavixReel/Document/EffectsSpec.h"

#include <algorithm>

namespace tavix::ReelTimeline {
namespace {

const RetimedSegment* footageIn(const ReelSegment& segment) { return std::get_if<RetimedSegment>(&segment); }

// Puts a card where it belongs among what is there already.
void insert(const CardSegment& card, std::vector<ReelSegment>& list) {
    const auto next = std::ranges::find_if(list, [&card](const ReelSegment& segment) {
        const RetimedSegment* footage = footageIn(segment);
        return footage && card.insertionSec < footage->range.endSec;
    });
    if (next == list.end()) {
        list.emplace_back(card);
        return;
    }
    RetimedSegment before = std::get<RetimedSegment>(*next), after = before;
    if (card.insertionSec <= before.range.startSec) {
        list.insert(next, card);
        return;
    }
    before.range.endSec = after.range.startSec = card.insertionSec;
    *next = before;
    list.insert(next + 1, {ReelSegment(card), ReelSegment(after)});
}

}   // namespace

std::vector<CardSegment> resolvedCards(std::span<const TitleCard> cards, double preCutDurationSec) {
    std::vector<CardSegment> resolved;
    for (std::size_t i = 0; i < cards.size(); ++i)
        if (cards[i].durationSec > 0)
            resolved.push_back(
                {i, std::min(std::max(preCutDurationSec, 0.0), std::max(cards[i].insertionSec, 0.0)),
                    cards[i].durationSec});
    std::ranges::stable_sort(resolved, {}, &CardSegment::insertionSec);
    return resolved;
}

std::vector<ReelSegment> segments(std::span<const TimeRangeSec> keptRanges,
    std::span<const RetimeSegment> retime, std::span<const CardSegment> cards) {
    std::vector<ReelSegment> list;
    for (const RetimedSegment& footage : RetimePlan::segments(keptRanges, retime)) list.emplace_back(footage);
    for (const CardSegment& card : cards) insert(card, list);
    return list;
}

std::vector<ReelSegment> segmentsOf(const EffectsSpec& spec, double preCutDurationSec) {
    return segments(VideoPostProcess::keptRanges(preCutDurationSec, spec.cuts), spec.retimeTrack,
        resolvedCards(spec.titleCards, preCutDurationSec));
}

double durationSec(const ReelSegment& segment) {
    if (const RetimedSegment* footage = footageIn(segment)) return footage->compositionDurationSec();
    return std::get<CardSegment>(segment).durationSec;
}

double outputDurationSec(std::span<const ReelSegment> segments) {
    double total = 0;
    for (const ReelSegment& segment : segments) total += durationSec(segment);
    return total;
}

std::vector<double> cutSeamsSec(std::span<const ReelSegment> segments) {
    constexpr double leastGapSec = 0.000001;
    std::vector<double> seams;
    double startSec = 0;
    const RetimedSegment* previous = nullptr;
    for (const ReelSegment& segment : segments) {
        const RetimedSegment* footage = footageIn(segment);
        if (previous && footage && previous->range.endSec + leastGapSec < footage->range.startSec)
            seams.push_back(startSec);
        startSec += durationSec(segment);
        previous = footage;
    }
    return seams;
}

SegmentTime locate(double compositionSec, std::span<const ReelSegment> segments) {
    if (segments.empty()) return FootageTime{0};
    const double t = std::clamp(compositionSec, 0.0, outputDurationSec(segments));
    double startSec = 0;
    std::size_t i = 0;
    // The last segment holds what is left, its end included.
    for (; i + 1 < segments.size(); ++i) {
        const double endSec = startSec + durationSec(segments[i]);
        if (t < endSec) break;
        startSec = endSec;
    }
    const double localSec = t - startSec;
    if (const RetimedSegment* footage = footageIn(segments[i]))
        return FootageTime{localSec * footage->speed + footage->range.startSec};
    const auto& card = std::get<CardSegment>(segments[i]);
    return CardTime{card.index, std::clamp(localSec, 0.0, card.durationSec)};
}

double preCutSec(double forCompositionSec, std::span<const ReelSegment> segments) {
    const SegmentTime located = locate(forCompositionSec, segments);
    if (const auto* footage = std::get_if<FootageTime>(&located)) return footage->originalSeconds;
    const std::size_t index = std::get<CardTime>(located).index;
    for (const ReelSegment& segment : segments)
        if (const auto* card = std::get_if<CardSegment>(&segment); card && card->index == index)
            return card->insertionSec;
    return 0;
}

double compositionSec(double forPreCutSec, std::span<const ReelSegment> segments) {
    double startSec = 0;
    for (const ReelSegment& segment : segments) {
        if (const RetimedSegment* footage = footageIn(segment)) {
            const TimeRangeSec& range = footage->range;
            if (range.startSec > forPreCutSec) return startSec;
            if (range.endSec > forPreCutSec)
                return startSec + (forPreCutSec - range.startSec) / std::max(footage->speed, slowestSpeed);
        } else if (std::get<CardSegment>(segment).insertionSec == forPreCutSec) {
            return startSec;
        }
        startSec += durationSec(segment);
    }
    return startSec;
}

std::optional<TimeRangeSec> compositionRange(std::size_t ofCard, std::span<const ReelSegment> segments) {
    double startSec = 0;
    for (const ReelSegment& segment : segments) {
        const double endSec = startSec + durationSec(segment);
        if (const auto* card = std::get_if<CardSegment>(&segment); card && card->index == ofCard)
            return TimeRangeSec{startSec, endSec};
        startSec = endSec;
    }
    return std::nullopt;
}

}   // namespace tavix::ReelTimeline
