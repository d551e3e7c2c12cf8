// Any bytes are a composition or a failure with a sentence; and what could be read can be written and read
// again, and is then the same. It can also be resolved and judged, and every finding says something.
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Support/Document.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

std::optional<tavix::CompositionSpec> read(std::string_view bytes) {
    try {
        return tavix::decodeJson<tavix::CompositionSpec>(bytes);
    } catch (const tavix::DecodingError& error) {
        if (!error.message().ends_with('.')) std::abort();
        return std::nullopt;
    }
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto spec = read({reinterpret_cast<const char*>(data), size});
    if (!spec) return 0;
    const std::string written = tavix::encodedJson(*spec);
    const auto again = read(written);
    if (again != spec || tavix::encodedJson(*again) != written) std::abort();
    for (const auto& finding : tavix::CompositionRoad::judge(*spec, std::nullopt).findings())
        if (finding.message.empty()) std::abort();
    return 0;
}
