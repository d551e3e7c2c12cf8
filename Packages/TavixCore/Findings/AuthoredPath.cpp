#include "TavixCore/Findings/AuthoredPath.h"

#include "TavixCore/Document/CompositionSpec.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <set>
#include <utility>

namespace tavix::CompositionLint {
namespace {

// Takes "key[index]" off the front of a path, and the dot after it.
std::optional<std::size_t> takeIndex(std::string_view& path, std::string_view key) {
    if (!path.starts_with(key) || !path.substr(key.size()).starts_with('[')) return std::nullopt;
    const std::string_view rest = path.substr(key.size() + 1);
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), index);
    if (error != std::errc() || end == rest.data() + rest.size() || *end != ']') return std::nullopt;
    path = rest.substr(static_cast<std::size_t>(end - rest.data()) + 1);
    if (path.starts_with('.')) path.remove_prefix(1);
    return index;
}

bool isAtOrUnder(std::string_view path, std::string_view key) {
    return path.starts_with(key) &&
           (path.size() == key.size() || path[key.size()] == '.' || path[key.size()] == '[');
}

// What a name says in the author's place; all else of the layer is as it was written.
bool isBaked(const LayerOrigin& origin, std::string_view inLayer) {
    constexpr std::string_view byBoth[] = {"enter", "tracks", "device.placement", "device.scene3D"};
    constexpr std::string_view byFormations[] = {
        "id", "fromSec", "durationSec", "position", "opacity", "exit"};
    const auto isUnder = [&](std::string_view key) { return isAtOrUnder(inLayer, key); };
    return std::ranges::any_of(byBoth, isUnder) ||
           (origin.baked == LayerOrigin::Baked::formation && std::ranges::any_of(byFormations, isUnder));
}

std::string_view keyOf(const LayerOrigin& origin, std::string_view inLayer) {
    if (origin.baked == LayerOrigin::Baked::nothing || !isBaked(origin, inLayer)) return inLayer;
    return origin.baked == LayerOrigin::Baked::formation ? "device.choreographyPreset"
                                                         : "device.motionPreset";
}

}   // namespace

std::string authoredPath(std::string_view path, const CompositionSpec& spec) {
    std::string_view rest = path;
    const auto scene = takeIndex(rest, "scenes");
    const auto layer = scene && *scene < spec.scenes.size() ? takeIndex(rest, "layers") : std::nullopt;
    if (!layer || *layer >= spec.scenes[*scene].layers.size()) return std::string(path);
    const LayerOrigin& origin = spec.scenes[*scene].layers[*layer].origin;
    if (!origin.writtenAs) return std::string(path);
    std::string authored =
        "scenes[" + std::to_string(*scene) + "].layers[" + std::to_string(*origin.writtenAs) + "]";
    const std::string_view key = keyOf(origin, rest);
    return key.empty() ? authored : authored.append(".").append(key);
}

std::vector<Finding> atAuthoredPaths(std::vector<Finding> findings, const CompositionSpec& spec) {
    std::set<std::pair<std::string, std::string>> told;
    std::vector<Finding> authored;
    for (Finding& finding : findings) {
        std::string path = authoredPath(finding.path, spec);
        const bool isBaked = path != finding.path;
        finding.path = std::move(path);
        const bool isNew = told.emplace(finding.path, finding.message).second;
        if (isNew || !isBaked) authored.push_back(std::move(finding));
    }
    return authored;
}

}   // namespace tavix::CompositionLint
