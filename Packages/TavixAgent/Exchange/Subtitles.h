// Captions as the files that players and other programs read: SubRip (.srt) and WebVTT (.vtt, W3C Candidate
// Recommendation 2019).
#pragma once

#include "TavixBase/Finding.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

struct SubtitleCue {
    double fromSec = 0, toSec = 0;   // whole milliseconds in files; the end is after the start
    std::string text;                // plain, with line feeds between its lines
    bool operator==(const SubtitleCue&) const = default;
};

enum class SubtitleForm { srt, vtt };

std::string writeSubtitles(std::span<const SubtitleCue> cues, SubtitleForm form);

struct SubtitleReading {
    std::vector<SubtitleCue> cues;   // in the order of their starts
    std::vector<Finding> notes;      // what could not be read or kept, with the line
};
// Of either form; which one, the file itself says. Sloppy files are read as players read them. Throws
// `Failure` where there is no caption at all.
SubtitleReading readSubtitles(std::string_view bytes);

}   // namespace tavix
