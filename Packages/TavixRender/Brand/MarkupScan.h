// Looks through small XML files for elements of one name, without judging the rest.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::MarkupScan {

struct Element {
    std::string attributes;   // as they stand between the name and the bracket
    std::string text;         // up to the next bracket, without white space around it

    // The value of an attribute; nothing when there is none.
    std::optional<std::string> attribute(std::string_view name) const;
};

std::vector<Element> elements(std::string_view markup, std::string_view name);

}   // namespace tavix::MarkupScan
