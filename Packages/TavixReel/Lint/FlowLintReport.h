// What the rules of the flow lint share.
#pragma once

#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Lint/FlowSpecLint.h"

#include <concepts>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavix::FlowSpecLint {

// Sentences are put together from words and numbers.
inline std::string worded(std::string_view word) { return std::string(word); }
template <std::integral I> std::string worded(I number) { return std::to_string(number); }
std::string worded(double number);   // in its shortest form

class Report {
public:
    template <class... Parts> void error(const Parts&... parts) { add(Finding::Level::error, parts...); }
    template <class... Parts> void warning(const Parts&... parts) { add(Finding::Level::warning, parts...); }
    // An error when the word is none of those allowed; one that is absent is none.
    void checkWord(const std::optional<std::string>& word, std::span<const std::string_view> allowed,
        const std::string& field);
    // The indices of words that are to stand out.
    void checkEmphasis(
        const std::vector<EmphasisSpanSpec>& spans, std::string_view text, const std::string& field);

    std::vector<Finding> findings;

private:
    template <class... Parts> void add(Finding::Level level, const Parts&... parts) {
        std::string message;
        (message.append(worded(parts)), ...);
        findings.push_back({.level = level, .message = std::move(message), .code = "flow"});
    }
};

void lintTransitions(std::span<const Step> sortedSteps, Report& report);
void lintTypography(const FlowSpec& flow, std::span<const Step> sortedSteps, Report& report);

}   // namespace tavix::FlowSpecLint
