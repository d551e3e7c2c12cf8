// Any document packs into a bundle that opens, or is refused with a sentence and leaves the bundle before it.
#include "TavixBase/Failure.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

// A folder with a file or two that generated paths have a chance to name.
fs::path workFolder() {
    std::string pattern = (fs::temp_directory_path() / "tavix-pack-XXXXXX").string();
    if (!mkdtemp(pattern.data())) std::abort();
    for (const char* name : {"a", "b.png"}) std::ofstream(fs::path(pattern) / name) << name;
    return pattern;
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fs::path folder = workFolder();
    const fs::path bundle = folder / "out.tavixcomp";
    try {
        const std::string_view bytes(reinterpret_cast<const char*>(data), size);
        const auto spec = tavix::decodeJson<tavix::CompositionSpec>(bytes);
        tavix::CompositionProjectBundle::write(spec, folder, bundle);
    } catch (const tavix::Failure& failure) {
        if (failure.message().empty()) std::abort();
    }
    if (tavix::CompositionProjectBundle::isBundle(bundle)) tavix::CompositionProjectBundle::read(bundle);
    return 0;
}
