// What lint has found so far, and how it words it.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Support/KeyPath.h"

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavix::CompositionLint {

// A number as it stands in a message: a whole one as an integer, another with three significant digits.
std::string fmt(double number);

// A value inside a message: text as it is, a number as `fmt` writes it.
struct Wording {
    Wording(std::string_view value) : text(value) {}
    Wording(const std::string& value) : text(value) {}
    Wording(const char* value) : text(value) {}
    Wording(double number);

    std::string text;
};

// The pattern with each "{}" replaced by the next value.
std::string worded(std::string_view pattern, std::initializer_list<Wording> values);
// A number as `fmt` writes it, with more digits where it would read like the other one.
std::string apart(double number, double other);
// With ", " between them.
std::string listed(std::span<const std::string_view> words);

class LintReport {
public:
    using Suggestion = std::optional<std::string>;

    // The rule tells whether it is an error.
    void tell(Rule rule, const KeyPath& at, std::string message, Suggestion suggestion = {}) {
        findings_.push_back(findingOf(rule, at.text(), std::move(message), std::move(suggestion)));
    }
    std::vector<Finding> findings() && { return std::move(findings_); }

private:
    std::vector<Finding> findings_;
};

}   // namespace tavix::CompositionLint
