#include "TavixCore/Theme/BackgroundSelector.h"

#include "TavixBase/Failure.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Theme/BackgroundCatalog.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>
#include <vector>

namespace tavix::BackgroundSelector {

namespace {

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// A whole text that is a finite number.
std::optional<double> numberFrom(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWholeText = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return isWholeText && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

double angleFrom(std::string_view text) {
    const std::optional<double> degrees = numberFrom(text);
    if (!degrees)
        throw Failure("Invalid gradient angle " + quoted(text) + " — expected a number of degrees.");
    return *degrees;
}

RGBAColor stopColorFrom(std::string_view text) {
    const auto color = RGBAColor::fromHex(text);
    if (!color) throw Failure("Invalid gradient colour " + quoted(text) + " — expected a hex like #1E2A44.");
    return *color;
}

RGBAColor solidColorFrom(std::string_view text) {
    const auto color = RGBAColor::fromHex(text);
    if (!color)
        throw Failure(
            "Invalid solid colour " + quoted(text) + " — expected a hex like #1E2A44 or #1E2A44FF.");
    return *color;
}

// The parts between commas, trimmed; empty ones do not count.
std::vector<std::string_view> partsOf(std::string_view text) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const std::string_view part = text.substr(0, text.find(','));
        if (!part.empty()) parts.push_back(trimmed(part));
        text.remove_prefix(std::min(part.size() + 1, text.size()));
    }
    return parts;
}

}   // namespace

std::string catalogIDs() {
    std::string ids;
    for (const BundledBackground& entry : BackgroundCatalog::all)
        ids.append(ids.empty() ? "" : ", ").append(entry.id);
    return ids;
}

LinearGradient parseGradient(std::string_view text) {
    LinearGradient gradient;
    if (const std::size_t at = text.find('@'); at != std::string_view::npos) {
        gradient.angleDegrees = angleFrom(trimmed(text.substr(at + 1)));
        text = text.substr(0, at);
    }
    const std::vector<std::string_view> parts = partsOf(text);
    if (parts.size() < 2)
        throw Failure("A gradient needs at least two colours, e.g. gradient:#1E2A44,#0A0E17.");
    for (std::size_t i = 0; i < parts.size(); ++i)
        gradient.stops.push_back(
            {stopColorFrom(parts[i]), static_cast<double>(i) / static_cast<double>(parts.size() - 1)});
    return gradient;
}

BackgroundFill resolve(std::string_view argument) {
    constexpr std::string_view solidPrefix = "solid:", gradientPrefix = "gradient:";
    const std::string_view text = trimmed(argument);
    if (text.empty()) throw Failure("Empty --background value.");
    const std::string lower = lowered(text);
    if (const BundledBackground* entry = BackgroundCatalog::background(lower))
        return BackgroundImage::bundled(std::string(entry->id));
    if (lower.starts_with('#')) return solidColorFrom(text);
    if (lower.starts_with(solidPrefix)) return solidColorFrom(text.substr(solidPrefix.size()));
    if (lower == "gradient") return LinearGradient::standard();
    if (lower.starts_with(gradientPrefix)) return parseGradient(text.substr(gradientPrefix.size()));
    if (text.find_first_of("/.") != std::string_view::npos)
        return BackgroundImage{std::string(text), std::nullopt};
    throw Failure("Unknown --background " + quoted(text) + ". Use a catalog id (" + catalogIDs() +
                  "), a hex colour (#1E2A44), \"gradient[:<hex>,<hex>[@angle]]\", or a path to an image.");
}

}   // namespace tavix::BackgroundSelector
