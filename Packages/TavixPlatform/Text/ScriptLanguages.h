// The language that decides the shapes of letters where a script leaves a choice. Inside the library only.
#pragma once

#include <cstddef>
#include <vector>

namespace tavix::text {

struct LanguageRun {
    std::size_t begin, end;   // code points
    const char* language;
};

// Of the text alone, never of the machine's settings: the usual language of each script, and for Han
// characters Japanese where the paragraph has kana, Korean where it has hangul, traditional Chinese where it
// has bopomofo, else simplified Chinese.
std::vector<LanguageRun> languageRuns(const std::vector<char32_t>& points);

}   // namespace tavix::text
