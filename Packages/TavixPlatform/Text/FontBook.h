// The fonts that text can be set in: those installed on this machine and those of files that a document
// brings.
#pragma once

#include "TavixPlatform/Text/Font.h"

#include <filesystem>
#include <memory>
#include <optional>
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
// subpixels and aliases are settled here, so the same fonts give the same pixels everywhere.
//
// Safe on every thread: a lock of its own guards it, and setting text takes that lock for its length. Drawing
// takes none.
class FontBook {
public:
    // The family of user interfaces. Where even it is missing, whatever the machine has stands in.
    static constexpr std::string_view interfaceFamily = "Inter";

    FontBook();                                                             // of the machine's font folders
    explicit FontBook(const std::vector<std::filesystem::path>& folders);   // of these folders alone
    ~FontBook();
    FontBook(const FontBook&) = delete;
    FontBook& operator=(const FontBook&) = delete;

    // One book for all who render in this process, made when first asked for.
    static FontBook& ofThisMachine();

    // Adds the faces of a file for this process and leaves the machine as it was. Returns the PostScript name
    // of its first face, or nothing for what is no usable font. A file that was added before is not read
    // again.
    std::optional<std::string> addFile(const std::filesystem::path& file);

    // By PostScript name, full name or family, whatever its case; then by the table of stand-ins
    // (FontStandIns.h); then the interface font. The size is held between 1 and 4096 pixels.
    FoundFont named(std::string_view name, double sizePx) const;
    Font interfaceFont(double sizePx) const;

private:
    std::shared_ptr<FontCore> core_;
};

}   // namespace tavix::text
