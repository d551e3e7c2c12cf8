#include "Engine/Presets/PlayArguments.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Words.h"
#include "Engine/System/Errors.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Device/DeviceMotionRef.h"
#include "TavixCore/Support/Names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace tavix::engine {

namespace {

using Direction = DeviceMotionParams::Direction;
using namespace PresetFamily;

constexpr std::string_view devices = "motions or formations";

// A number that says how a device moves, and which family it goes with.
struct NumberOption {
    std::string_view name, key, placeholder, meaning, family;
};

constexpr std::array<NumberOption, 6> numberOptions{{
    {"--duration", "durationSec", "SEC", "Length of a motion or a formation; its own without this.", devices},
    {"--anchor-x", "anchorX", "FRACTION", "A motion's shift aside, of the canvas height.", motions},
    {"--face-inward", "faceInwardDeg", "DEG", "Turn of a shifted device towards the middle.", motions},
    {"--start-at", "startAtSec", "SEC", "When a motion starts.", motions},
    {"--spread", "spread", "N", "How wide a formation is; 1 is usual.", formations},
    {"--stagger", "staggerSec", "SEC", "Time between one device of a formation and the next.", formations},
}};

bool goesWith(std::string_view family, std::string_view asked) {
    return family == asked || (family == devices && asked != kinetic);
}

template <class E> std::vector<std::pair<std::string_view, E>> wordsOf() {
    std::vector<std::pair<std::string_view, E>> words;
    for (const E value : allCases<E>()) words.emplace_back(nameOf(value), value);
    return words;
}

double intensityNumber(const std::string& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size()) return value;
    throw UsageError(
        "The --intensity of a motion or a formation is a number, as in 0.5, not \"" + text + "\".");
}

KineticIntensity intensityWord(const std::string& text) {
    if (const auto known = named<KineticIntensity>(lowered(text))) return *known;
    const auto words = allNames<KineticIntensity>();
    throw UsageError("The --intensity of presets kinetic is " + listed(words) + ", not \"" + text + "\"." +
                     suggestion(text, words));
}

}   // namespace

void PlayArguments::declare(Arguments& arguments) {
    numbers_.resize(numberOptions.size());
    for (std::size_t i = 0; i < numberOptions.size(); ++i)
        arguments.number(
            numberOptions[i].name, numbers_[i], numberOptions[i].placeholder, numberOptions[i].meaning);
    arguments.text("--intensity", intensity_, "N|WORD",
        "How strong: a number for devices, 1 is usual; low, medium or high for text.");
    arguments.wholeNumber("--count", count_, 2, 8, "N", "How many devices a formation has.");
    std::vector<std::pair<std::string_view, std::string>> directions;
    for (const std::string_view word : allNames<Direction>()) directions.emplace_back(word, word);
    arguments.choice("--direction", direction_, std::move(directions), "Which way round a device goes.");
    arguments.choice("--speed", speed_, wordsOf<KineticSpeed>(), "How quick text is; smooth is usual.");
    arguments.choice(
        "--weight", weight_, wordsOf<KineticWeight>(), "How text arrives; its own without this.");
    arguments.text("--text", text_, "TEXT", "What the text says: a long one moves in larger pieces.");
    arguments.wholeNumber("--seed", seed_, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
        "N", "Which of its random orders and motions a text has.");
}

bool PlayArguments::isEmpty() const {
    return !count_ && !seed_ && !direction_ && !intensity_ && !text_ && !speed_ && !weight_ &&
           std::ranges::none_of(numbers_, [](const auto& number) { return number.has_value(); });
}

void PlayArguments::requireUse(std::string_view asked) const {
    const auto require = [&](bool isGiven, std::string_view option, std::string_view family) {
        if (isGiven && !goesWith(family, asked))
            throw UsageError(std::string(option) + " goes with presets " + std::string(family) +
                             ", not with " + std::string(asked) + ".");
    };
    for (std::size_t i = 0; i < numberOptions.size(); ++i)
        require(numbers_[i].has_value(), numberOptions[i].name, numberOptions[i].family);
    require(count_.has_value(), "--count", formations);
    require(direction_.has_value(), "--direction", devices);
    require(speed_.has_value(), "--speed", kinetic);
    require(weight_.has_value(), "--weight", kinetic);
    require(text_.has_value(), "--text", kinetic);
    require(seed_.has_value(), "--seed", kinetic);
}

Json PlayArguments::deviceParams(std::string_view family) const {
    requireUse(family);
    JsonObject params;
    for (std::size_t i = 0; i < numberOptions.size(); ++i)
        if (numbers_[i]) params.set(numberOptions[i].key, *numbers_[i]);
    if (intensity_) params.set("intensity", intensityNumber(*intensity_));
    if (count_) params.set("count", *count_);
    if (direction_) params.set("direction", *direction_);
    return params;
}

KineticPresetCatalog::Request PlayArguments::kineticRequest(std::string_view presetID) const {
    requireUse(kinetic);
    KineticPresetCatalog::Request request;
    request.preset = {std::string(presetID), speed_.value_or(KineticSpeed::smooth), weight_,
        intensity_ ? intensityWord(*intensity_) : KineticIntensity::medium};
    if (text_) request.text = *text_;
    request.seed = seed_.value_or(0);
    return request;
}

}   // namespace tavix::engine
