#include "TavixPlatform/Text/FallbackFamilies.h"

#include "TavixPlatform/Text/FontBook.h"

#include <algorithm>

namespace tavix::text {
namespace {

constexpr std::string_view hanPrefix = "Noto Sans CJK ";

int tier(const std::string& family) {
    if (family == FontBook::interfaceFamily) return 0;
    if (family == "Noto Sans") return 1;
    if (family.starts_with("Noto Sans Mono") || family.starts_with("Noto Sans Display")) return 5;
    if (family.starts_with("Noto Sans")) return 2;
    if (family.ends_with("Emoji")) return 3;
    if (family.starts_with("Noto")) return 4;
    return 6;
}

std::string_view hanRegion(std::string_view language) {
    if (language.starts_with("ja")) return "JP";
    if (language.starts_with("ko")) return "KR";
    if (language == "zh-hk" || language == "zh-mo") return "HK";
    if (language == "zh-tw" || language.starts_with("zh-hant")) return "TC";
    return "SC";
}

}   // namespace

std::vector<std::string> fallbackFamilies(std::vector<std::string> families) {
    std::ranges::sort(families);
    families.erase(std::unique(families.begin(), families.end()), families.end());
    std::ranges::stable_sort(families, {}, tier);
    return families;
}

std::vector<std::string> orderedFor(
    const std::vector<std::string>& families, std::string_view language, bool isEmoji) {
    std::vector<std::string> ordered = families;
    const std::string han = std::string(hanPrefix) + std::string(hanRegion(language));
    std::stable_partition(ordered.begin(), ordered.end(), [&](const std::string& family) {
        return tier(family) < 2 || family == han || (isEmoji && family.ends_with("Emoji"));
    });
    if (isEmoji)
        std::stable_partition(ordered.begin(), ordered.end(),
            [](const std::string& family) { return family.ends_with("Emoji"); });
    return ordered;
}

}   // namespace tavix::text
