#include "TavixPlatform/Text/ScriptLanguages.h"

#include <glib.h>

#include <string_view>

namespace tavix::text {
namespace {

GUnicodeScript scriptOf(char32_t point) { return g_unichar_get_script(point); }

const char* hanLanguage(const std::vector<char32_t>& points) {
    bool hasHangul = false, hasBopomofo = false;
    for (const char32_t point : points) {
        switch (scriptOf(point)) {
        case G_UNICODE_SCRIPT_HIRAGANA:
        case G_UNICODE_SCRIPT_KATAKANA: return "ja";
        case G_UNICODE_SCRIPT_HANGUL: hasHangul = true; break;
        case G_UNICODE_SCRIPT_BOPOMOFO: hasBopomofo = true; break;
        default: break;
        }
    }
    return hasHangul ? "ko" : hasBopomofo ? "zh-tw" : "zh-cn";
}

// Scripts that one language has for itself need no row: nothing of theirs hangs on the language.
const char* languageOf(GUnicodeScript script, const char* han) {
    switch (script) {
    case G_UNICODE_SCRIPT_HAN:
    case G_UNICODE_SCRIPT_HIRAGANA:
    case G_UNICODE_SCRIPT_KATAKANA:
    case G_UNICODE_SCRIPT_HANGUL:
    case G_UNICODE_SCRIPT_BOPOMOFO: return han;
    case G_UNICODE_SCRIPT_ARABIC: return "ar";
    case G_UNICODE_SCRIPT_BENGALI: return "bn";
    case G_UNICODE_SCRIPT_CYRILLIC: return "ru";
    case G_UNICODE_SCRIPT_DEVANAGARI: return "hi";
    case G_UNICODE_SCRIPT_ETHIOPIC: return "am";
    case G_UNICODE_SCRIPT_HEBREW: return "he";
    case G_UNICODE_SCRIPT_THAI: return "th";
    default: return "en";
    }
}

}   // namespace

std::vector<LanguageRun> languageRuns(const std::vector<char32_t>& points) {
    const char* const han = hanLanguage(points);
    std::vector<LanguageRun> runs;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const GUnicodeScript script = scriptOf(points[i]);
        const bool isShared = script == G_UNICODE_SCRIPT_COMMON || script == G_UNICODE_SCRIPT_INHERITED;
        // The shared punctuation of the East stands before text as well as after it.
        const bool isEastern = points[i] >= 0x3000 && points[i] < 0x3040;
        const char* language = isEastern  ? han
                               : isShared ? (runs.empty() ? "en" : runs.back().language)
                                          : languageOf(script, han);
        if (runs.empty() || std::string_view(runs.back().language) != language)
            runs.push_back({i, i + 1, language});
        else
            runs.back().end = i + 1;
    }
    return runs;
}

}   // namespace tavix::text
