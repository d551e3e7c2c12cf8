#include "TavixCore/Typography/EmphasisBaking.h"

#include "TavixCore/Typography/EmphasisResolver.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>

namespace tavix::EmphasisBaking {

std::vector<EmphasisSpan> bake(const std::map<std::int64_t, EmphasisToken>& wordTokens,
    const std::vector<EmphasisSpan>& existing, std::string_view text, const CaptionStyle& style,
    const BrandKit* brand) {
    const auto count = std::int64_t(KineticMath::words(text).size());
    std::vector<EmphasisSpan> spans;   // by first word, since the map is walked in order
    for (const auto& [index, token] : wordTokens) {
        if (index < 0 || index >= count) continue;
        auto span = std::ranges::find(spans, token, &EmphasisSpan::token);
        if (span == spans.end()) {
            const auto known = std::ranges::find(existing, token, &EmphasisSpan::token);
            span = spans.insert(
                span, {{}, token,
                          known != existing.end() ? known->style
                                                  : EmphasisResolver::resolve(token, style, brand,
                                                        KineticIntensity::medium, std::nullopt)});
        }
        span->wordIndices.push_back(index);
    }
    return spans;
}

}   // namespace tavix::EmphasisBaking
