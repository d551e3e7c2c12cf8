// The background pictures that come with the program. The render library knows where their files are.
#pragma once

#include <array>
#include <string_view>

namespace tavix {

struct BundledBackground {
    std::string_view id, displayName, resourceName, fileExtension;
    bool operator==(const BundledBackground&) const = default;
};

namespace BackgroundCatalog {

inline constexpr std::array<BundledBackground, 7> all{{
    {"default", "Default", "default-background", "jpg"},
    {"aurora", "Aurora", "bg-aurora", "jpg"},
    {"ocean", "Ocean", "bg-ocean", "jpg"},
    {"graphite", "Graphite", "bg-graphite", "jpg"},
    {"sunset", "Sunset", "bg-sunset", "jpg"},
    {"coral", "Coral", "bg-coral", "jpg"},
    {"mint", "Mint", "bg-mint", "jpg"},
}};
inline constexpr const BundledBackground& standard = all.front();

// The entry of that id, or nothing.
constexpr const BundledBackground* background(std::string_view id) {
    for (const BundledBackground& entry : all)
        if (entry.id == id) return &entry;
    return nullptr;
}

}   // namespace BackgroundCatalog

}   // namespace tavix
