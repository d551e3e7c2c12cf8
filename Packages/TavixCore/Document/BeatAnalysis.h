// What was heard in a piece of music: its beats, its drop, its loud and quiet parts. Kept beside the music as
// a file of its own. Times are seconds of the music's file.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <type_traits>
#include <vector>

namespace tavix {

struct BeatAnalysis {
    struct Section {
        double startSec = 0;
        double meanRmsDb = 0;   // decibels of full scale, -80 and up
        bool operator==(const Section&) const = default;
    };

    std::int64_t schemaVersion = 1;
    double bpm = 0;   // beats per minute; 0: no beat was found
    double firstBeatSec = 0;
    double confidence = 0;   // 0 to 1: how far the beat stands out
    double durationSec = 0;
    std::int64_t beatCount = 0;
    std::optional<double> dropSec;          // where it becomes loud at once, on a beat
    std::optional<double> alternativeBpm;   // half or twice the tempo, when that is nearly as likely
    std::vector<double> onsetsSec;
    std::vector<Section> sections;
    bool operator==(const BeatAnalysis&) const = default;

    // The file beside the music that holds its analysis: song.mp3 has song.beats.json.
    static std::filesystem::path sidecarPath(const std::filesystem::path& forAudioAt);
};

const Fields<BeatAnalysis::Section>& fieldsOf(std::type_identity<BeatAnalysis::Section>);
const Fields<BeatAnalysis>& fieldsOf(std::type_identity<BeatAnalysis>);

}   // namespace tavix
