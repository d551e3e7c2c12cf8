// Any text is set into lines that cover it, and any bytes are a font or none. The first byte says which, and
// how wide a line is.
#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/LineDrawing.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

using namespace tavix;

void require(bool holds) {
    if (!holds) std::abort();
}

void setAndDraw(const text::StyledText& text, double maxWidthPx) {
    std::size_t at = 0;
    for (const text::TypesetLine& line : text::wrappedLines(text, maxWidthPx)) {
        require(line.range().begin >= at && line.range().end <= text.text.size());
        at = line.range().end;
        const text::LinePart part{line.range(), {-1e6, 1e6}};
        const imaging::PixelRegion seen = intersection(inkRegion(line, {}, part, 1), {-64, -64, 512, 64});
        if (!seen.isEmpty()) drawn(line, {0.25, 0.5}, part, 1, seen);
    }
    require(at == text.text.size());
}

void setInFontOf(const std::string& bytes) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("tavix-fuzz-" + std::to_string(::getpid()) + ".ttf");
    if (std::FILE* out = std::fopen(file.c_str(), "wb")) {
        std::fwrite(bytes.data(), 1, bytes.size(), out);
        std::fclose(out);
    }
    const text::FontBook book({std::filesystem::temp_directory_path() / "tavix-no-fonts"});
    if (const text::FontBook* with = book.withFile(file))
        setAndDraw({"Wolf abc 123 \u00e9 \u0627\u0644", with->named(with->nameOfFile(), 24).font}, 100);
    std::filesystem::remove(file);
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    constexpr std::uint8_t isFont = 0x80;
    if (data[0] & isFont) {
        setInFontOf(bytes);
    } else {
        static const text::Font font = text::FontBook().interfaceFont(24);
        setAndDraw({bytes, font}, 8.0 * data[0]);
    }
    return 0;
}
