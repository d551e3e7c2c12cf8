#include "TavixAgent/Exchange/Subtitles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace tavix {
namespace {

std::string timeText(double sec, char point) {
    const auto ms = std::max<std::int64_t>(std::llround(sec * 1000), 0);
    char text[32];
    std::snprintf(text, sizeof text, "%02lld:%02lld:%02lld%c%03lld", static_cast<long long>(ms / 3'600'000),
        static_cast<long long>(ms / 60'000 % 60), static_cast<long long>(ms / 1000 % 60), point,
        static_cast<long long>(ms % 1000));
    return text;
}

// In WebVTT an angle begins a tag and an ampersand an escape.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else
            result += c;
    }
    return result;
}

// An empty line would end the caption.
std::string withoutEmptyLines(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        if (text.find_first_not_of(" \t\r", at) < end)
            result += (result.empty() ? "" : "\n") + text.substr(at, end - at);
        at = end + 1;
    }
    return result;
}

}   // namespace

std::string writeSubtitles(std::span<const SubtitleCue> cues, SubtitleForm form) {
    const bool isVtt = form == SubtitleForm::vtt;
    const char point = isVtt ? '.' : ',';
    std::string file = isVtt ? "WEBVTT\n\n" : "";
    std::size_t number = 0;
    for (const SubtitleCue& cue : cues) {
        const std::string text = withoutEmptyLines(cue.text);
        if (text.empty()) continue;
        file += std::to_string(++number) + "\n" + timeText(cue.fromSec, point) + " --> " +
                timeText(cue.toSec, point) + "\n" + (isVtt ? escaped(text) : text) + "\n\n";
    }
    if (number > 0) file.pop_back();
    return file;
}

}   // namespace tavix
