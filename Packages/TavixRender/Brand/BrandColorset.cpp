#include "TavixRender/Brand/BrandColorset.h"

#include "TavixBase/Failure.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixRender/Brand/BrandFiles.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace tavix::BrandColorsetParser {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view contentsName = "Contents.json", accentName = "AccentColor.colorset";

// A part of a colour as a fraction: whatever is above 1 counts in bytes. Wider colour spaces have parts past
// 0 and 1, which come to their ends.
std::optional<double> fraction(std::optional<double> number) {
    if (!number || !std::isfinite(*number)) return std::nullopt;
    return std::clamp(*number > 1 ? *number / 255 : *number, 0.0, 1.0);
}

std::optional<double> numberIn(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::optional<double> component(const Json* json) {
    if (!json) return std::nullopt;
    if (json->isNumber()) return fraction(json->doubleValue());
    if (!json->text()) return std::nullopt;
    const std::string_view text = trimmed(*json->text());
    if (!text.starts_with("0x") && !text.starts_with("0X")) return fraction(numberIn(text));
    unsigned byte = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data() + 2, last, byte, 16);
    return error == std::errc() && end == last ? std::optional(std::min(byte / 255.0, 1.0)) : std::nullopt;
}

const Json* pathIn(const Json* json, std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys) json = json ? json->find(key) : nullptr;
    return json;
}

// The entry without a condition; the first where all have one.
const Json* plainEntry(const JsonArray& entries) {
    const auto plain = std::ranges::find_if(
        entries, [](const Json& entry) { return entry.object() && !entry.find("appearances"); });
    return plain == entries.end() ? &entries.front() : &*plain;
}

}   // namespace

std::optional<fs::path> findAccentColorset(const fs::path& under) {
    if (BrandFiles::lowerExtension(under) == "colorset") return under / contentsName;
    for (const fs::path& file : BrandFiles::under(under))
        if (file.filename() == contentsName && file.parent_path().filename() == accentName) return file;
    return std::nullopt;
}

std::optional<RGBAColor> parseColorset(const fs::path& contents) {
    Json set;
    try {
        set = parseJson(BrandFiles::textOf(contents));
    } catch (const Failure&) {
        return std::nullopt;
    }
    const Json* colors = set.find("colors");
    if (!colors || !colors->array() || colors->array()->empty()) return std::nullopt;
    const Json* parts = pathIn(plainEntry(*colors->array()), {"color", "components"});
    if (!parts || !parts->object()) return std::nullopt;
    const auto part = [parts](std::string_view key, double otherwise) {
        return component(parts->find(key)).value_or(otherwise);
    };
    return RGBAColor{part("red", 0), part("green", 0), part("blue", 0), part("alpha", 1)};
}

}   // namespace tavix::BrandColorsetParser
