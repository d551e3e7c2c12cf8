// Any bytes are a patch or a failure with a sentence; a patch can be run or fails with a sentence; and what
// it makes of a document is also what the difference makes of it, and what it makes of the document's text.
#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Paths/Merge.h"
#include "TavixCore/Support/JsonParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

// The first line is the document, the rest the patch.
void run(std::string_view bytes) {
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos) return;
    const std::string_view text = bytes.substr(0, end);
    const auto dialect =
        text.find("//") < text.size() ? tavix::JsonDialect::withComments : tavix::JsonDialect::strict;
    const tavix::Json document = tavix::parseJson(text, dialect);
    const tavix::JsonPatch patch = tavix::readPatch(tavix::parseJson(bytes.substr(end + 1)));
    check(tavix::readPatch(tavix::writePatch(patch)) == patch);
    const tavix::Json patched = tavix::applyPatch(patch, document);
    check(tavix::parseJson(tavix::patchedText(text, patch, dialect), dialect) == patched);
    check(tavix::applyPatch(tavix::diff(document, patched), document) == patched);
    check(tavix::merge(document, patched, document).document == patched);
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        run({reinterpret_cast<const char*>(data), size});
    } catch (const tavix::Failure& failure) {
        check(failure.message().ends_with('.'));
    }
    return 0;
}
