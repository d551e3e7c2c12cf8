#include "TavixRender/Brand/MarkupScan.h"

#include "TavixBase/TextTrimming.h"

#include <algorithm>

namespace tavix::MarkupScan {
namespace {

bool endsName(char c) { return c == '>' || c == '/' || c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}   // namespace

std::optional<std::string> Element::attribute(std::string_view name) const {
    const std::string wanted = std::string(name) + "=";
    for (std::size_t at = attributes.find(wanted); at != std::string::npos;
         at = attributes.find(wanted, at + 1)) {
        const bool isWhole = at == 0 || endsName(attributes[at - 1]);
        const std::size_t open = at + wanted.size();
        if (!isWhole || open >= attributes.size()) continue;
        const char quote = attributes[open];
        const std::size_t close = attributes.find(quote, open + 1);
        if ((quote == '"' || quote == '\'') && close != std::string::npos)
            return attributes.substr(open + 1, close - open - 1);
    }
    return std::nullopt;
}

std::vector<Element> elements(std::string_view markup, std::string_view name) {
    const std::string opening = "<" + std::string(name);
    std::vector<Element> found;
    for (std::size_t at = markup.find(opening); at != std::string_view::npos;
         at = markup.find(opening, at + 1)) {
        const std::size_t after = at + opening.size();
        if (after >= markup.size() || !endsName(markup[after])) continue;
        const std::size_t close = markup.find('>', after);
        if (close == std::string_view::npos) break;
        const std::size_t end = std::min(markup.find('<', close), markup.size());
        found.push_back({std::string(trimmed(markup.substr(after, close - after))),
            std::string(trimmed(markup.substr(close + 1, end - close - 1)))});
    }
    return found;
}

}   // namespace tavix::MarkupScan
