#include "TavixCore/Document/FrameRate.h"

#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/ReadingErrors.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace tavix {

namespace {

template <class T> std::optional<T> numberIn(std::string_view text) {
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

// The rate of television that a decimal stands for. They are the multiples of 6, slowed by 1000/1001: 23.976
// and 23.98 are 24000/1001, 59.94 is 60000/1001.
std::optional<FrameRate> televisionRate(double perSec) {
    constexpr double step = 6, slowing = 1000.0 / 1001;
    const double whole = std::round(perSec / slowing / step) * step;
    const bool hasTwoDigits = std::abs(perSec * 100 - std::round(perSec * 100)) < 1e-6;
    const double rounding = hasTwoDigits ? 0.005 : 0.0005;
    if (whole < step || std::abs(perSec - whole * slowing) > rounding) return std::nullopt;
    return FrameRate::ratio(static_cast<std::int64_t>(whole) * 1000, 1001);
}

std::optional<FrameRate> fractionIn(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto numerator = numberIn<std::int64_t>(text.substr(0, slash));
    const auto denominator = numberIn<std::int64_t>(text.substr(slash + 1));
    return numerator && denominator ? FrameRate::ratio(*numerator, *denominator) : std::nullopt;
}

FrameRate rateIn(const Json& json, const KeyPath& at) {
    constexpr std::string_view whatItIs = R"(a number of frames a second or a fraction such as "30000/1001")";
    if (const std::string* text = json.text()) {
        if (const auto rate = FrameRate::parsed(*text)) return *rate;
        failWithData(at, at.subject() + " must be " + std::string(whatItIs) + ", but is \"" + *text + "\".");
    }
    if (!json.isNumber()) failWithType(at, whatItIs, json);
    const std::optional<std::int64_t> whole = json.integerValue();
    return whole ? FrameRate(*whole) : FrameRate::of(json.doubleValue().value_or(0));
}

Json written(const FrameRate& rate) {
    if (rate.denominator() == 1) return rate.numerator();
    return rate.text();
}

Json describedRate() {
    return JsonObject{{"anyOf", JsonArray{JsonObject{{"type", "number"}},
                                    JsonObject{{"pattern", "^-?[0-9]+/[0-9]+$"}, {"type", "string"}}}}};
}

}   // namespace

std::optional<FrameRate> FrameRate::ratio(std::int64_t numerator, std::int64_t denominator) {
    if (denominator < 1 || denominator > largestTerm || numerator < -largestTerm || numerator > largestTerm)
        return std::nullopt;
    const std::int64_t common = std::gcd(numerator, denominator);
    return FrameRate(numerator / common, denominator / common);
}

FrameRate FrameRate::of(double perSec) {
    constexpr auto most = double(largestTerm);
    const double whole = std::round(std::fmin(std::fmax(perSec, -most), most));
    if (whole == perSec || std::abs(whole) == most) return static_cast<std::int64_t>(whole);
    if (const auto rate = televisionRate(perSec)) return *rate;
    for (const double parts : {10.0, 100.0, 1000.0, 10'000.0, 100'000.0})
        if (const double scaled = std::round(perSec * parts);
            parts == 100'000 || std::abs(scaled / parts - perSec) < 1e-9)
            if (const auto rate = ratio(std::int64_t(scaled), std::int64_t(parts))) return *rate;
    return static_cast<std::int64_t>(whole);   // so large that a part of a frame does not count
}

std::optional<FrameRate> FrameRate::parsed(std::string_view text) {
    if (const auto fraction = fractionIn(text)) return fraction;
    const auto decimal = numberIn<double>(text);
    return decimal && std::isfinite(*decimal) ? std::optional(of(*decimal)) : std::nullopt;
}

std::int64_t FrameRate::frameNearest(double atSec) const {
    return std::llround(atSec * double(numerator_) / double(denominator_));
}

std::string FrameRate::text() const {
    const std::string whole = std::to_string(numerator_);
    return denominator_ == 1 ? whole : whole + "/" + std::to_string(denominator_);
}

std::string FrameRate::shown() const {
    if (denominator_ == 1) return text();
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.10g", std::round(double(*this) * 1000) / 1000);
    return digits;
}

const Type& typeOf(std::type_identity<FrameRate>) {
    static const OwnType type{{Type::Kind::own},
        [](const Json& json, void* into, const KeyPath& at) {
            *static_cast<FrameRate*>(into) = rateIn(json, at);
        },
        [](const void* value) { return written(*static_cast<const FrameRate*>(value)); }, describedRate,
        [](const void* a, const void* b) {
            return *static_cast<const FrameRate*>(a) == *static_cast<const FrameRate*>(b);
        }};
    return type;
}

}   // namespace tavix
