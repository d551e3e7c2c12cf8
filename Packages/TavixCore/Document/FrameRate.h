// How many frames a second has: a whole number, or a fraction, such as the 30000/1001 that television calls
// 29.97. In JSON a whole number stands as a number, a fraction as text; a decimal is read as well.
#pragma once

#include "TavixCore/Support/Type.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace tavix {

class FrameRate {
public:
    static constexpr std::int64_t largestTerm = 100'000'000;   // of a fraction

    constexpr FrameRate() = default;
    template <std::integral I>
    constexpr FrameRate(I perSec) : numerator_(static_cast<std::int64_t>(perSec)) {}
    // In lowest terms; nothing when the denominator is below 1 or a term is beyond the largest.
    static std::optional<FrameRate> ratio(std::int64_t numerator, std::int64_t denominator);
    // Of a decimal: what is a rate of television once its digits are rounded is that rate, all else is exact
    // to a hundred-thousandth. One beyond all sense is held at the largest term.
    static FrameRate of(double perSec);
    // Of "30", "29.97" or "30000/1001".
    static std::optional<FrameRate> parsed(std::string_view text);

    constexpr std::int64_t numerator() const { return numerator_; }
    constexpr std::int64_t denominator() const { return denominator_; }
    explicit operator double() const { return double(numerator_) / double(denominator_); }
    bool operator==(const FrameRate&) const = default;
    friend bool operator<(const FrameRate& a, const FrameRate& b) { return double(a) < double(b); }

    // When a frame is shown, of a rate above 0, and which frame is nearest to a moment.
    double secAt(std::int64_t frame) const {
        return double(frame) * double(denominator_) / double(numerator_);
    }
    std::int64_t frameNearest(double atSec) const;

    std::string text() const;    // exact, as in "30" or "30000/1001"
    std::string shown() const;   // for people, as in "29.97"

private:
    constexpr FrameRate(std::int64_t numerator, std::int64_t denominator)
        : numerator_(numerator), denominator_(denominator) {}

    std::int64_t numerator_ = 30, denominator_ = 1;
};

const Type& typeOf(std::type_identity<FrameRate>);

}   // namespace tavix
