#include "TavixCore/Composition/Lint/LintReport.h"

#include "TavixCore/Composition/CompositionLint.h"

namespace tavix::CompositionLint {

Wording::Wording(double number) : text(fmt(number)) {}

std::string worded(std::string_view pattern, std::initializer_list<Wording> values) {
    std::string message;
    for (const Wording& value : values) {
        const std::size_t gap = pattern.find("{}");
        message.append(pattern.substr(0, gap)).append(value.text);
        pattern.remove_prefix(gap + 2);
    }
    return message.append(pattern);
}

std::string listed(std::span<const std::string_view> words) {
    std::string list;
    for (const std::string_view word : words) list.append(list.empty() ? "" : ", ").append(word);
    return list;
}

}   // namespace tavix::CompositionLint
