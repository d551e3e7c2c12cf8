#include "TavixCore/Judge/PassedOver.h"

#include "TavixBase/NearestWord.h"
#include "TavixCore/Device/DeviceChoreographyRef.h"
#include "TavixCore/Device/DeviceMotionRef.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/IgnoredParts.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/Names.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace tavix::CompositionLint {
namespace {

std::optional<std::string> nearestOf(const IgnoredPart& part) {
    if (part.nearest.empty()) return std::nullopt;
    return "Did you mean \"" + std::string(part.nearest) + "\"?";
}

std::string rangeOf(const Bounds& limits) {
    if (std::isinf(limits.most)) return worded("at least {}", {limits.least});
    if (std::isinf(limits.least)) return worded("at most {}", {limits.most});
    return worded("between {} and {}", {limits.least, limits.most});
}

// The value at a path of keys and indices; nothing where there is none.
const Json* valueAt(const Json& document, std::string_view path) {
    const Json* at = &document;
    while (at && !path.empty()) {
        if (path.front() == '.') path.remove_prefix(1);
        if (!path.empty() && path.front() == '[') {
            std::size_t index = 0;
            const auto end = std::from_chars(path.data() + 1, path.data() + path.size(), index).ptr;
            const JsonArray* items = at->array();
            at = items && index < items->size() ? &(*items)[index] : nullptr;
            path.remove_prefix(std::min(std::size_t(end - path.data()) + 1, path.size()));
            continue;
        }
        const std::size_t end = std::min(path.find_first_of(".["), path.size());
        at = at->find(path.substr(0, end));
        path.remove_prefix(end);
    }
    return at;
}

std::vector<std::string_view> motionNames() {
    const auto names = DeviceMotionPreset::knownRawValues();
    return {names.begin(), names.end()};
}

// A motion or a formation that is not known takes the device's animation with it.
std::optional<Finding> unknownAnimation(const IgnoredPart& part, const Json& document) {
    const bool isMotion = part.path.ends_with(".motionPreset");
    if (!isMotion && !part.path.ends_with(".choreographyPreset")) return std::nullopt;
    const Json* written = valueAt(document, part.path);
    const Json* preset = written ? written->find("preset") : nullptr;
    if (!preset || !preset->text()) return std::nullopt;
    const std::vector<std::string_view> names =
        isMotion ? motionNames() : allNames<DeviceChoreographyPreset>();
    if (std::ranges::find(names, *preset->text()) != names.end())
        return std::nullopt;   // something else is wrong
    return findingOf(Rule::valueDropped, part.path + ".preset",
        worded("There is no {} \"{}\", so the device does not move by it. Use one of {}.",
            {isMotion ? "motion" : "formation", *preset->text(), listed(names)}),
        didYouMean(*preset->text(), names));
}

Finding findingFor(const IgnoredPart& part, const Json& document) {
    switch (part.reason) {
    case IgnoredPart::Reason::unknownKey:
        return findingOf(Rule::keyUnknown, part.path,
            worded(
                "\"{}\" is no key here, and is not read. The keys are {}.", {part.found, listed(part.legal)}),
            nearestOf(part));
    case IgnoredPart::Reason::unknownWord:
        return findingOf(Rule::wordUnknown, part.path,
            worded("\"{}\" is not known here and is read as \"{}\". Use one of {}.",
                {part.found, part.taken, listed(part.legal)}),
            nearestOf(part));
    case IgnoredPart::Reason::clamped:
        return findingOf(Rule::valueLimited, part.path,
            worded("{} is read as {}; it must be {}.",
                {part.value, part.limits.clamp(part.value), rangeOf(part.limits)}));
    case IgnoredPart::Reason::unreadable: break;
    }
    if (auto animation = unknownAnimation(part, document)) return *animation;
    return findingOf(Rule::valueDropped, part.path, worded("{} It is left out.", {part.message}));
}

}   // namespace

std::vector<Finding> passedOver(const Json& document) {
    return passedOver(document, typeOf<CompositionSpec>());
}

std::vector<Finding> passedOver(const Json& document, const Type& type) {
    std::vector<Finding> findings;
    for (const IgnoredPart& part : ignoredParts(document, type))
        findings.push_back(findingFor(part, document));
    return findings;
}

}   // namespace tavix::CompositionLint
