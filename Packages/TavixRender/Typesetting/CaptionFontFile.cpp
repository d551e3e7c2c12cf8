#include "TavixRender/Typesetting/CaptionFontFile.h"

#include "TavixBase/TextTrimming.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Assets/CompositionAssets.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace tavix::CaptionFontFile {
namespace {

constexpr std::array<std::string_view, 3> extensions{"ttf", "otf", "ttc"};

}   // namespace

bool looksLikePath(std::string_view string) {
    const std::string path = lowered(trimmed(string));
    const std::size_t slash = path.rfind('/') + 1;   // 0 where there is none
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos || dot <= slash) return false;
    return std::ranges::find(extensions, std::string_view(path).substr(dot + 1)) != extensions.end();
}

std::optional<FontOption> option(std::string_view string,
    const std::optional<std::filesystem::path>& baseDirectory, const text::FontBook& fonts) {
    if (!looksLikePath(string)) return std::nullopt;
    std::error_code error;
    std::filesystem::path file = CompositionAssets::tildeExpanded(std::string(trimmed(string)));
    if (file.is_relative() && baseDirectory) file = *baseDirectory / file;
    file = std::filesystem::absolute(file, error).lexically_normal();
    if (error || !std::filesystem::is_regular_file(file, error)) return std::nullopt;
    const text::FontBook* book = fonts.withFile(file);
    if (book == nullptr) return std::nullopt;
    const std::string& name = book->nameOfFile();
    return FontOption{file.filename().string(), "File (" + name + ")", name, file.string()};
}

}   // namespace tavix::CaptionFontFile
