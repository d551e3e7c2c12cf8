#include "TavixCore/Document/BeatAnalysis.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

std::filesystem::path BeatAnalysis::sidecarPath(const std::filesystem::path& forAudioAt) {
    std::filesystem::path sidecar = forAudioAt;
    return sidecar.replace_extension("beats.json");
}

const Fields<BeatAnalysis::Section>& fieldsOf(std::type_identity<BeatAnalysis::Section>) {
    using S = BeatAnalysis::Section;
    static const Fields<S> table{"BeatAnalysisSection",
        {field<&S::startSec>("startSec", "Where the part begins.").measuredIn(Unit::seconds).required(),
            field<&S::meanRmsDb>("meanRmsDb", "How loud it is, against full scale.")
                .measuredIn(Unit::decibels)
                .required()}};
    return table;
}

const Fields<BeatAnalysis>& fieldsOf(std::type_identity<BeatAnalysis>) {
    using B = BeatAnalysis;
    static const Fields<B> table{"BeatAnalysis",
        {field<&B::schemaVersion>("schemaVersion", "The version of this format."),
            field<&B::bpm>("bpm", "The tempo; 0 when no beat was found.").measuredIn(Unit::beatsPerMinute),
            field<&B::firstBeatSec>("firstBeatSec", "When the first beat falls.").measuredIn(Unit::seconds),
            field<&B::confidence>("confidence", "How far the beat stands out.").measuredIn(Unit::fraction),
            field<&B::durationSec>("durationSec", "How long the music is.").measuredIn(Unit::seconds),
            field<&B::beatCount>("beatCount", "How many beats it has."),
            field<&B::dropSec>("dropSec", "Where it becomes loud at once.").measuredIn(Unit::seconds),
            field<&B::alternativeBpm>("alternativeBpm", "Another tempo that is nearly as likely.")
                .measuredIn(Unit::beatsPerMinute),
            field<&B::onsetsSec>("onsetsSec", "When notes and hits begin.").measuredIn(Unit::seconds),
            field<&B::sections>("sections", "Its loud and quiet parts.")}};
    return table;
}

}   // namespace tavix
