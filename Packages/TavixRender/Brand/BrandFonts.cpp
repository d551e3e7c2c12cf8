#include "TavixRender/Brand/BrandFonts.h"

#include "TavixRender/Brand/BrandFiles.h"

#include <plist/plist.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <tuple>

namespace tavix::BrandFontResolver {
namespace {

namespace fs = std::filesystem;

bool isFont(const fs::path& file) {
    static constexpr std::array<std::string_view, 3> kinds{"ttf", "otf", "ttc"};
    return std::ranges::find(kinds, BrandFiles::lowerExtension(file)) != kinds.end();
}

int weightScore(const fs::path& file) {
    const std::string name = BrandFiles::lowerName(file);
    const auto holds = [&name](const char* word) { return name.find(word) != std::string::npos; };
    return holds("medium") ? 0 : holds("regular") || holds("-book") ? 1 : holds("semibold") ? 2 : 3;
}

struct PlistDeleter {
    void operator()(void* node) const { plist_free(node); }
};
using Plist = std::unique_ptr<void, PlistDeleter>;

// The texts in a list of a property list; none when the file has no such list.
std::vector<std::string> textsIn(const fs::path& file, const char* key) {
    const std::string bytes = BrandFiles::textOf(file);
    plist_t read = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &read);
    const Plist root(read);
    std::vector<std::string> texts;
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT) return texts;
    const plist_t list = plist_dict_get_item(root.get(), key);
    if (!list || plist_get_node_type(list) != PLIST_ARRAY) return texts;
    for (std::uint32_t i = 0; i < plist_array_get_size(list); ++i) {
        const plist_t entry = plist_array_get_item(list, i);
        std::uint64_t length = 0;
        const char* text =
            plist_get_node_type(entry) == PLIST_STRING ? plist_get_string_ptr(entry, &length) : nullptr;
        if (text) texts.emplace_back(text, length);
    }
    return texts;
}

std::optional<fs::path> fileNamed(const fs::path& folder, const std::string& entry) {
    std::error_code ignored;
    if (fs::is_regular_file(folder / entry, ignored)) return folder / entry;
    const fs::path name = fs::path(entry).filename();
    for (const fs::path& file : BrandFiles::under(folder))
        if (file.filename() == name) return file;
    return std::nullopt;
}

// What a font calls itself; nothing for what is none.
std::optional<std::string> nameOf(const fs::path& file, const text::FontBook& fonts) {
    const text::FontBook* book = fonts.withFile(file);
    return book ? std::optional(book->nameOfFile()) : std::nullopt;
}

}   // namespace

std::vector<BrandKit::BrandFont> allEmbeddedFonts(const fs::path& under, const text::FontBook& fonts) {
    std::vector<fs::path> files;
    for (const fs::path& file : BrandFiles::under(under))
        if (isFont(file)) files.push_back(file);
    std::ranges::stable_sort(files, {},
        [](const fs::path& file) { return std::pair(weightScore(file), file.filename().string()); });
    std::vector<BrandKit::BrandFont> found;
    for (const fs::path& file : files) {
        const auto name = nameOf(file, fonts);
        if (name && std::ranges::find(found, *name, &BrandKit::BrandFont::name) == found.end())
            found.push_back({*name, file.string()});
    }
    return found;
}

std::optional<BrandKit::BrandFont> extractPrimaryFont(
    const fs::path& appBundle, const std::vector<BrandKit::BrandFont>& scanned, const text::FontBook& fonts) {
    for (const std::string& entry : textsIn(appBundle / "Info.plist", "UIAppFonts")) {
        const auto file = fileNamed(appBundle, entry);
        const auto name = file ? nameOf(*file, fonts) : std::nullopt;
        if (name) return BrandKit::BrandFont{*name, file->string()};
    }
    return scanned.empty() ? std::nullopt : std::optional(scanned.front());
}

}   // namespace tavix::BrandFontResolver
