// The frames of a device motion, and the short form in which the table of motions writes them:
//
//     0: y 180, rz -24; 0.45: rest; 1: rest
//
// A frame is the fraction of the motion's length, then what differs from rest: x, y, z (the place), rx, ry,
// rz (turns, in degrees), sx, sy (sizes), kx, ky (skews, in degrees), o (opacity) and b (blur).
#pragma once

#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tavix {

// Places and blur are in units of a neutral space: 172 of them are the canvas height, 600 the whole depth.
struct DeviceMotionFrame {
    double t = 0;   // 0 at the first frame, 1 at the last
    double x = 0, y = 0, z = 0;
    double rx = 0, ry = 0, rz = 0;
    double sx = 1, sy = 1;
    double skewX = 0, skewY = 0;
    double opacity = 1;
    double blur = 0;
    bool operator==(const DeviceMotionFrame&) const = default;
};

namespace DeviceMotionFrames {

// What the short form calls each number.
inline constexpr std::array<std::pair<std::string_view, double DeviceMotionFrame::*>, 12> fieldWords{
    {{"x", &DeviceMotionFrame::x}, {"y", &DeviceMotionFrame::y}, {"z", &DeviceMotionFrame::z},
        {"rx", &DeviceMotionFrame::rx}, {"ry", &DeviceMotionFrame::ry}, {"rz", &DeviceMotionFrame::rz},
        {"sx", &DeviceMotionFrame::sx}, {"sy", &DeviceMotionFrame::sy}, {"kx", &DeviceMotionFrame::skewX},
        {"ky", &DeviceMotionFrame::skewY}, {"o", &DeviceMotionFrame::opacity},
        {"b", &DeviceMotionFrame::blur}}};

// Takes the text up to a separator from its front, without the spaces around it.
constexpr std::string_view takeUntil(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    std::string_view piece = text.substr(0, end);
    text = end == text.npos ? std::string_view() : text.substr(end + 1);
    while (piece.starts_with(' ')) piece.remove_prefix(1);
    while (piece.ends_with(' ')) piece.remove_suffix(1);
    return piece;
}

// A short decimal number. Digits and power of ten are exact, so their quotient is the nearest number.
constexpr double decimal(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    double digits = 0, power = 1;
    bool isFraction = false;
    if (text.empty() || text.size() > 12) throw std::invalid_argument("A number is missing or too long.");
    for (const char c : text) {
        if (c == '.' && !isFraction) {
            isFraction = true;
            continue;
        }
        if (c < '0' || c > '9') throw std::invalid_argument("A number has a character too many.");
        digits = digits * 10 + (c - '0');
        if (isFraction) power *= 10;
    }
    return (isNegative ? -digits : digits) / power;
}

constexpr void setField(DeviceMotionFrame& frame, std::string_view word, double value) {
    for (const auto& [known, member] : fieldWords)
        if (known == word) {
            frame.*member = value;
            return;
        }
    throw std::invalid_argument("A frame has no number of that name.");
}

constexpr DeviceMotionFrame frameIn(std::string_view text) {
    DeviceMotionFrame frame;
    frame.t = decimal(takeUntil(text, ':'));
    if (text == " rest") return frame;
    while (!text.empty()) {
        std::string_view number = takeUntil(text, ',');
        const std::string_view word = takeUntil(number, ' ');
        setField(frame, word, decimal(number));
    }
    return frame;
}

// Calls `visit` with each frame of a text, in order.
template <class Visit> constexpr void eachFrame(std::string_view text, Visit visit) {
    while (!text.empty()) visit(frameIn(takeUntil(text, ';')));
}

// Whether frames are well written: at least two, from 0 to 1, in rising time. Throws where a number is not.
constexpr bool runsFrom0To1(std::string_view text) {
    double last = -1;
    bool rises = true;
    eachFrame(text, [&](const DeviceMotionFrame& frame) {
        rises = rises && (last < 0 ? frame.t == 0 : frame.t > last);
        last = frame.t;
    });
    return rises && last == 1;
}

}   // namespace DeviceMotionFrames

}   // namespace tavix
