#include "TavixCore/Typography/WordMatch.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>
#include <set>

namespace tavix::WordMatch {

namespace {

std::vector<std::string> normalizedWords(std::string_view text) {
    std::vector<std::string> words;
    for (const KineticMath::Word& word : KineticMath::words(text)) words.push_back(normalize(word.text));
    return words;
}

}   // namespace

std::string normalize(std::string_view word) {
    const std::vector<std::string_view> characters = KineticMath::characters(word);
    const auto first = std::ranges::find_if(characters, KineticMath::isLetterOrNumber);
    if (first == characters.end()) return {};
    auto last = characters.end() - 1;
    while (!KineticMath::isLetterOrNumber(*last)) --last;
    const char* begin = first->data();
    return lowered({begin, std::size_t(last->data() + last->size() - begin)});
}

Result indices(std::span<const std::string> phrases, std::string_view text) {
    const std::vector<std::string> words = normalizedWords(text);
    std::set<std::int64_t> matched;
    Result result;
    for (const std::string& phrase : phrases) {
        std::vector<std::string> wanted = normalizedWords(phrase);
        std::erase(wanted, std::string());
        if (wanted.empty()) continue;
        bool isFound = false;
        for (auto at = words.begin(); std::size_t(words.end() - at) >= wanted.size(); ++at) {
            if (!std::equal(wanted.begin(), wanted.end(), at)) continue;
            isFound = true;
            for (std::size_t i = 0; i < wanted.size(); ++i)
                matched.insert(at - words.begin() + std::int64_t(i));
        }
        if (!isFound) result.unmatched.push_back(phrase);
    }
    result.indices.assign(matched.begin(), matched.end());
    return result;
}

}   // namespace tavix::WordMatch
