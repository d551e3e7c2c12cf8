// Where the words of captions come from.
#pragma once

#include "TavixReel/Flow/FlowStep.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <type_traits>

namespace tavix {

enum class CaptionTone { marketing, terse, friendly };

// What is known of a step that wants a caption.
struct CaptionBeatContext {
    std::int64_t stepIndex = 0;
    Interaction interaction = Interaction::tap;
    std::string identifier;   // of the target
    std::optional<std::string> label, textValue, stateDescription, screen;
    std::optional<std::string> providedText;   // the flow's own words
    bool operator==(const CaptionBeatContext&) const = default;
};

class CaptionCopySource {
public:
    virtual ~CaptionCopySource() = default;
    // A line for each step that is to have one, by the step's index. May take its time, and may throw a
    // `Failure`, which the caller's caller gets.
    virtual std::map<std::int64_t, std::string> captionLines(
        std::span<const CaptionBeatContext> beats, CaptionTone tone, std::int64_t maxWords) const = 0;
};

// Makes words of what the target is called. Knows neither tones nor limits.
class HumanizedCopySource : public CaptionCopySource {
public:
    std::map<std::int64_t, std::string> captionLines(
        std::span<const CaptionBeatContext> beats, CaptionTone tone, std::int64_t maxWords) const override;

    static std::string line(const CaptionBeatContext& beat);
};

// Takes the flow's own words, and the names of targets where it has none.
class ProvidedCopySource : public CaptionCopySource {
public:
    std::map<std::int64_t, std::string> captionLines(
        std::span<const CaptionBeatContext> beats, CaptionTone tone, std::int64_t maxWords) const override;
};

// An identifier as words: "loginButton_primary" is "login button primary".
std::string humanize(std::string_view identifier);

const Names<CaptionTone>& namesOf(std::type_identity<CaptionTone>);

}   // namespace tavix
