// Whatever lies in an application's folder, its look is told in sentences and nothing comes to harm. The
// first byte says which file of an application the others are.
#include "TavixRender/Brand/AndroidHints.h"
#include "TavixRender/Brand/AppHints.h"
#include "TavixRender/Brand/BrandColorset.h"
#include "TavixRender/Brand/BrandExtractor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 8> names{"manifest.webmanifest", "walk.desktop", "walk.metainfo.xml",
    "AccentColor.colorset/Contents.json", "Info.plist", "res/values/colors.xml", "res/values/themes.xml",
    "AndroidManifest.xml"};

// A folder of this run, with the other files as an application has them.
class App {
public:
    App() : folder_(fs::temp_directory_path() / ("tavix-brand-fuzz-" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
    }
    ~App() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    void write(std::string_view name, std::string_view bytes) const {
        const fs::path file = folder_ / name;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
    }
    void clear() const {
        for (const std::string_view name : names) fs::remove(folder_ / name);
    }
    const fs::path& folder() const { return folder_; }

private:
    fs::path folder_;
};

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const App app;
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string_view name = names[data[0] % names.size()];
    app.clear();
    // Metadata is looked into beside the entry that it belongs to, and themes beside colours.
    if (name == "walk.metainfo.xml") app.write("walk.desktop", "[Desktop Entry]\nIcon=walk\n");
    if (name == "res/values/themes.xml")
        app.write("res/values/colors.xml", R"(<resources><color name="a">#123456</color></resources>)");
    app.write(name, bytes);
    const auto report = tavix::BrandExtractor::extract(app.folder());
    for (const double part : {report.brand.accent.r, report.brand.accent.g, report.brand.accent.b})
        if (!(part >= 0 && part <= 1)) std::abort();
    if (report.notes.empty()) std::abort();
    tavix::AppHints::androidColor(bytes);
    tavix::AppHints::hintsIn(app.folder() / name);
    return 0;
}
