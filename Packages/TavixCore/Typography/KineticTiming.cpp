#include "TavixCore/Typography/KineticTiming.h"

#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>

namespace tavix::KineticTiming {

namespace {

constexpr double shortestWindowSec = 1.2, holdSec = 0.2;

std::size_t lineCount(std::string_view text) {
    std::size_t count = 0;
    bool isInside = false;
    for (const std::string_view character : KineticMath::characters(text)) {
        const bool breaks = KineticMath::isLineBreak(character);
        if (!breaks && !isInside) ++count;
        isInside = !breaks;
    }
    return count;
}

std::size_t characterCount(std::string_view text) {
    const std::vector<std::string_view> characters = KineticMath::characters(text);
    return characters.size() - std::size_t(std::ranges::count_if(characters, KineticMath::isWhitespace));
}

double lastStartSec(const KineticStyle& style, std::string_view text) {
    return style.stagger.delaySec * (elementCount(style.scope, text) - 1);
}

}   // namespace

int elementCount(AnimationScope scope, std::string_view text) {
    std::size_t count = 1;
    switch (scope) {
    case AnimationScope::block: break;
    case AnimationScope::line: count = lineCount(text); break;
    case AnimationScope::word: count = KineticMath::words(text).size(); break;
    case AnimationScope::character: count = characterCount(text); break;
    }
    return std::max(int(count), 1);
}

double inCompletionSec(const KineticStyle& style, std::string_view text) {
    return lastStartSec(style, text) + style.inPhase.durationSec;
}

double minWindowSec(const KineticStyle& style, std::string_view text) {
    return std::max(shortestWindowSec,
        inCompletionSec(style, text) + holdSec + style.outPhase.durationSec + lastStartSec(style, text));
}

}   // namespace tavix::KineticTiming
