#include "TavixEditor/Panels/JsonDraft.h"

#include "TavixCore/Judge/PassedOver.h"
#include "TavixCore/Judge/Repair.h"
#include "TavixCore/Support/Document.h"
#include "TavixEditor/Panels/JsonScan.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavix::editor {

namespace {

// Within a value that stands at `base`; nothing for a place outside of it.
std::optional<JsonPointer> relative(const JsonPointer& at, const JsonPointer& base) {
    if (!base.holds(at)) return std::nullopt;
    JsonPointer rest;
    for (std::size_t i = base.tokens().size(); i < at.tokens().size(); ++i)
        rest = rest / std::string_view(at.tokens()[i]);
    return rest;
}

int lineOf(std::string_view text, std::size_t offset) {
    return int(std::count(text.begin(), text.begin() + std::ptrdiff_t(std::min(offset, text.size())), '\n'));
}

JsonFault faultAt(const JsonPart& part, const JsonPointer& at, std::string message) {
    const JsonScan scan(part.text);
    const auto inside = relative(at, part.at);
    const JsonSpan* span = inside ? scan.nearest(*inside) : nullptr;
    return {std::move(message), span ? lineOf(part.text, span->keyFrom) : 0};
}

// The reader's own words begin with the line that it stopped at.
JsonFault syntaxFault(const DecodingError& error) {
    const std::string& message = error.message();
    const std::size_t at = message.find("line ");
    const int line = at == std::string::npos ? 1 : std::atoi(message.c_str() + at + 5);
    return {message, std::max(line, 1) - 1};
}

}   // namespace

JsonPointer writtenPlaceOf(
    const CompositionSpec& spec, std::optional<std::size_t> scene, std::optional<std::size_t> layer) {
    JsonPointer at;
    if (!scene || *scene >= spec.scenes.size()) return at;
    at = at / "scenes" / *scene;
    const auto& layers = spec.scenes[*scene].layers;
    if (!layer || *layer >= layers.size()) return at;
    return at / "layers" / layers[*layer].origin.writtenAs.value_or(*layer);
}

JsonPart partOfText(const std::string& whole, const JsonPointer& at) {
    const JsonSpan* span = nullptr;
    const JsonScan scan(whole);
    if (!at.isRoot()) span = scan.find(at);
    return span ? JsonPart{dedented(whole, *span), at} : JsonPart{whole, {}};
}

std::optional<std::string> wholeWith(const std::string& whole, const JsonPart& part) {
    if (part.at.isRoot()) return part.text;
    const JsonScan scan(whole);
    const JsonSpan* span = scan.find(part.at);
    return span ? std::optional(withPart(whole, *span, part.text)) : std::nullopt;
}

std::optional<JsonFault> faultIn(const JsonPart& part, const std::string& whole) {
    try {
        parseJson(part.text);
    } catch (const DecodingError& error) {
        return syntaxFault(error);
    }
    const auto all = wholeWith(whole, part);
    if (!all)
        return JsonFault{"Its place in the document is gone; discard the text to see what there is.", 0};
    try {
        decodeJson<CompositionSpec>(*all);
    } catch (const DecodingError& error) {
        return faultAt(part, CompositionLint::pointerOf(error.path(), parseJson(*all)), error.message());
    }
    return std::nullopt;
}

std::vector<JsonFault> ignoredIn(const JsonPart& part, const std::string& whole) {
    std::vector<JsonFault> faults;
    const auto all = wholeWith(whole, part);
    if (!all) return faults;
    const Json written = parseJson(*all);
    for (const Finding& finding : CompositionLint::passedOver(written)) {
        const JsonPointer at = CompositionLint::pointerOf(finding.path, written);
        if (!part.at.holds(at)) continue;
        faults.push_back(faultAt(
            part, at, finding.message + (finding.suggestion ? " " + *finding.suggestion : std::string())));
    }
    return faults;
}

}   // namespace tavix::editor
