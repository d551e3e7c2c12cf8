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
        {field<&S::startSec>("startSec", "Where the part begins.").required(),
            field<&S::meanRmsDb>("meanRmsDb", "How loud it is, in decibels of full scale.").required()}};
    return table;
}

const Fields<BeatAnalysis>& fieldsOf(std::type_identity<BeatAnalysis>) {
    using B = BeatAnalysis;
    static const Fields<B> table{"BeatAnalysis",
        {field<&B::schemaVersion>("schemaVersion", "The version of this format."),
            field<&B::bpm>("bpm", "The tempo in beats per minute; 0 when no beat was found."),
            field<&B::firstBeatSec>("firstBeatSec", "When the first beat falls."),
            field<&B::confidence>("confidence", "How far the beat stands out, 0 to 1."),
            field<&B::durationSec>("durationSec", "How long the music is."),
            field<&B::beatCount>("beatCount", "How many beats it has."),
            field<&B::dropSec>("dropSec", "Where it becomes loud at once."),
            field<&B::alternativeBpm>("alternativeBpm", "Another tempo that is nearly as likely."),
            field<&B::onsetsSec>("onsetsSec", "When notes and hits begin."),
            field<&B::sections>("sections", "Its loud and quiet parts.")}};
    return table;
}

}   // namespace tavix
