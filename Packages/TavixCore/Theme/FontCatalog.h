// The fonts that have a short name.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavix {

struct BrandKit;
struct CaptionStyle;

struct FontOption {
    std::string id;
    std::string displayName;
    std::optional<std::string> postScriptName;   // absent: the system's own font
    std::optional<std::string> fontPath;
    bool operator==(const FontOption&) const = default;
};

const Fields<FontOption>& fieldsOf(std::type_identity<FontOption>);

// Wherever a brand is asked for, null stands for none.
namespace FontCatalog {

const FontOption& system();
const std::vector<FontOption>& iosTop10();
const std::vector<FontOption>& standardOptions();   // `system`, then `iosTop10`

// The main font of an application, as `app`.
std::optional<FontOption> appFont(const BrandKit* brand);
// That, then the application's other fonts; each once.
std::vector<FontOption> brandFonts(const BrandKit* brand);

// The option that a short name means, whatever its case: `system`, `app` (the system's own where no
// application font is known) or an id of `iosTop10`. Nothing for any other text, which is then a font name or
// a path.
std::optional<FontOption> resolve(std::string_view value, const BrandKit* brand);

// The option that a name and a file came from, the brand's first; one of their own when there is none.
FontOption option(const std::optional<std::string>& fontName, const std::optional<std::string>& fontPath,
    const BrandKit* brand);
FontOption option(const CaptionStyle& style, const BrandKit* brand);

}   // namespace FontCatalog

}   // namespace tavix
