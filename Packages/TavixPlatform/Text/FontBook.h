// The fonts that text can be set in: those installed on this machine and those of files that a document
// brings.
#pragma once

#include "TavixPlatform/Text/Font.h"

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::text {

class FontCore;   // known to this library alone

// A font, and what had to be used instead of the one that was asked for.
struct FoundFont {
    Font font;
    bool isStandIn = false;   // true: the name is not of this machine, and another font stands in
};

// Nothing of the machine's own configuration of fonts but where they lie: sizes, hinting, colours of
// subpixels and aliases are settled here, so the same fonts give the same pixels everywhere. What one book is
// asked changes no other and not what it answers later.
//
// Safe on every thread: locks of its own guard it, and setting text takes one for its length. Drawing takes
// none.
class FontBook {
public:
    // The family of user interfaces. Where even it is missing, whatever the machine has stands in.
    static constexpr std::string_view interfaceFamily = "Inter";

    // Of the machine's font folders, which are read once for all books of the process: a book is cheap.
    FontBook();
    explicit FontBook(const std::vector<std::filesystem::path>& folders);   // of these folders alone
    ~FontBook();
    FontBook(const FontBook&) = delete;
    FontBook& operator=(const FontBook&) = delete;

    // The fonts of these folders and the faces of one file, which only text set in them sees: they fill in
    // for no other font, and no other file for them. Null for what is no usable font. The file is read once,
    // and its book lives as long as this one.
    const FontBook* withFile(const std::filesystem::path& file) const;
    // Of a book with a file, the PostScript name of the file's first face.
    const std::string& nameOfFile() const;

    // Every file that text may be set from, in the order of their paths: the fonts of the folders.
    std::vector<std::filesystem::path> files() const;

    // By PostScript name, full name or family, whatever its case; then by the table of stand-ins
    // (FontStandIns.h); then the interface font. The size is held between 1 and 4096 pixels.
    FoundFont named(std::string_view name, double sizePx) const;
    Font interfaceFont(double sizePx) const;

private:
    explicit FontBook(std::shared_ptr<FontCore> core);

    std::shared_ptr<FontCore> core_;   // of the machine's folders, shared with other books; never changes
    mutable std::mutex mutex_;
    mutable std::map<std::filesystem::path, std::unique_ptr<const FontBook>> filesRead_;   // null: no font
};

// The first book of a process empties fontconfig's default configuration, which only costs time and memory
// where nobody else asks it. A program whose window system does ask it calls this before it makes a book:
// else that system finds no font for letters that its own font lacks. Books answer the same either way.
void keepDefaultFontConfig();

}   // namespace tavix::text
