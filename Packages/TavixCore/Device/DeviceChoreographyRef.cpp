#include "TavixCore/Device/DeviceChoreographyRef.h"

#include "TavixCore/Support/FieldTables.h"

#include <array>

namespace tavix {
namespace {

constexpr std::int64_t leastCount = 2, mostCount = 8;

}   // namespace

const DeviceChoreographyTraits& traitsOf(DeviceChoreographyPreset preset) {
    static constexpr std::array<DeviceChoreographyTraits, 9> table{{
        // in the order of the cases
        {2.8, 4, true, "Fan deck — one phone becomes a feature spread"},
        {3.2, 4, true, "UI burst — screen cards escape and return"},
        {4.0, 5, true, "Orbit carousel — rotating device formation"},
        {3.2, 5, true, "Colorway domino — staggered lineup flips"},
        {3.6, 3, true, "Ecosystem handoff — relay across devices"},
        {3.2, 6, true, "Infinite tunnel — repeated screen fly-through"},
        {2.8, 4, false, "Screen cascade — flat editorial stack"},
        {2.6, 3, false, "Split focus — flat lineup with one hero"},
        {3.6, 5, true, "Depth wave — focus ripples across devices"},
    }};
    return table.at(static_cast<std::size_t>(preset));
}

const Names<DeviceChoreographyPreset>& namesOf(std::type_identity<DeviceChoreographyPreset>) {
    using enum DeviceChoreographyPreset;
    static const Names<DeviceChoreographyPreset> table{"device choreography preset",
        {{fanDeck, "fanDeck"}, {uiBurst, "uiBurst"}, {orbitCarousel, "orbitCarousel"},
            {colorwayDomino, "colorwayDomino"}, {ecosystemHandoff, "ecosystemHandoff"},
            {infiniteTunnel, "infiniteTunnel"}, {screenCascade, "screenCascade"}, {splitFocus, "splitFocus"},
            {depthWave, "depthWave"}}};
    return table;
}

const Fields<DeviceChoreographyParams>& fieldsOf(std::type_identity<DeviceChoreographyParams>) {
    using P = DeviceChoreographyParams;
    static const Fields<P> table{.name = "DeviceChoreographyParams",
        .rows = {field<&P::durationSec>(
                     "durationSec", "How long it takes; the formation's own length when absent.")
                     .measuredIn(Unit::seconds)
                     .clamped(1, 12),
            field<&P::intensity>("intensity", "How strong it is; 1 is usual.")
                .measuredIn(Unit::times)
                .clamped(0.3, 1.6)
                .unlessDefault(),
            field<&P::direction>("direction", "Which way round.").unlessDefault(),
            field<&P::count>("count", "How many devices; the formation's own number when absent.")
                .clamped(leastCount, mostCount),
            field<&P::spread>("spread", "How far apart they stand; 1 is usual.")
                .measuredIn(Unit::times)
                .clamped(0.3, 1.6)
                .unlessDefault(),
            field<&P::staggerSec>("staggerSec", "How long after one device the next one starts.")
                .measuredIn(Unit::seconds)
                .clamped(0, 0.5)
                .unlessDefault()}};
    return table;
}

const Fields<DeviceChoreographyRef>& fieldsOf(std::type_identity<DeviceChoreographyRef>) {
    using R = DeviceChoreographyRef;
    static const Fields<R> table{"DeviceChoreographyRef",
        {field<&R::preset>("preset",
             "Which formation, as `tavix presets formations` lists them. It fits itself to the shape of the frame.")
                .required(),
            field<&R::params>("params", "How it is played.")}};
    return table;
}

}   // namespace tavix
