// What stands behind fonts: the faces there are, and the objects of the libraries, under one lock. Inside the
// library only.
#pragma once

#include "TavixPlatform/Text/Font.h"
#include "TavixPlatform/Text/FontPlaces.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tavix::text {

// One face as fontconfig describes it.
struct Face {
    std::string family, postScriptName, fullName, file;
    int index = 0;         // in its file; the upper 16 bits choose a named instance of a variable font
    double weight = 400;   // as CSS counts, 100 to 1000
    int width = 100;       // percent
    bool isItalic = false;
    std::shared_ptr<const FcCharSet> characters = nullptr;   // that it has
};
using FaceRef = std::shared_ptr<const Face>;

class FontCore;

struct FontData {
    std::shared_ptr<FontCore> core;
    FaceRef face;
    std::size_t faceNumber = 0;
    double sizePx = 0;
    std::map<std::uint32_t, double> variations;
    // Measured when it is first asked for, since many a font only leads to another weight of its family.
    mutable std::optional<FontMetrics> metrics = std::nullopt;   // guarded by the core
};

// Fonts as Pango finds them: those of a configuration. Matching takes half a millisecond for each face and
// size where the machine has some hundred of them, so there are small maps beside that of all.
struct FontMap {
    FontMap(Owned<FcConfig> fonts, const FontCore& core, bool fillsIn);
    ~FontMap();
    FontMap(const FontMap&) = delete;
    FontMap& operator=(const FontMap&) = delete;

    Owned<FcConfig> config;
    const FontCore& core;
    bool fillsIn;   // other families for characters that a font lacks
    Owned<PangoFontMap> map;
    Owned<PangoContext> context;
};

// The faces of some folders, and of at most one file besides; they never change. What is asked of them is
// guarded by `mutex`: whoever calls a member holds it, but for those that say they take it.
class FontCore : public std::enable_shared_from_this<FontCore> {
public:
    explicit FontCore(FontPlaces places);
    // The faces of these folders and of a file, whose faces go before those of the same name. Nothing for
    // what is no usable font.
    static std::shared_ptr<FontCore> withFile(const FontPlaces& places, const std::filesystem::path& file);
    FontCore(const FontCore&) = delete;
    FontCore& operator=(const FontCore&) = delete;

    const FontPlaces& places() const { return places_; }
    // Of the first face of the file; empty where there is none.
    const std::string& nameOfFile() const { return nameOfFile_; }

    // These take the lock.
    std::optional<Font> find(std::string_view name, double sizePx);
    std::optional<Font> anyInFamily(std::string_view family, double weight, double sizePx);
    // The first of all; a font without glyphs where the machine has none at all.
    Font first(double sizePx);
    // These two take `mutex`.
    FontMetrics metrics(const FontData& font);
    // They stay where they are for the life of the core.
    const std::vector<VariationAxis>& axes(const FontData& font);

    Font fontOf(std::size_t faceNumber, double sizePx, std::map<std::uint32_t, double> variations);
    // The face of the family of `like` with its slope and width whose weight is nearest; nothing for a family
    // that there is not.
    std::optional<std::size_t> nearestInFamily(const Face& like, double weight) const;
    std::optional<std::size_t> faceInFamily(std::string_view family, double weight) const;

    static Owned<PangoFontDescription> description(const FontData& font);
    // To set text in these fonts, which are of this core: the same glyphs come of every context that is given
    // for it.
    PangoContext* contextFor(std::span<const Font> fonts, std::span<const char32_t> points);
    const std::vector<FaceRef>& faces() const { return faces_; }

    std::mutex mutex;

private:
    void takeFile(const std::string& path, const FcFontSet& faces);
    void takeFaces(const FcFontSet& set);
    friend struct FontMap;
    void settle(FcPattern* pattern, bool fillsIn) const;
    FontMap& mapOfAll();
    // Of a family alone; nothing where there is a file, whose faces no folder has.
    FontMap* mapOf(const std::string& family);

    FontPlaces places_;
    std::string nameOfFile_;
    Owned<FcConfig> config_;
    std::unique_ptr<FontMap> all_;   // made when text asks for it; Pango lists all its families for that
    std::unordered_map<std::string, std::unique_ptr<FontMap>> ofFamily_;
    std::vector<FaceRef> faces_;
    std::unordered_map<std::string, std::size_t> byName_;   // PostScript and full names, lowered
    std::unordered_map<std::string, std::vector<std::size_t>> byFamily_;   // lowered
    std::unordered_map<std::size_t, std::vector<VariationAxis>> axes_;     // by the numbers of faces
    std::vector<std::string> fallbackFamilies_;
};

// Weight traits against weights as CSS counts them.
double traitOfWeight(double weight);
double weightOfTrait(double trait);

std::string loweredAscii(std::string_view text);

}   // namespace tavix::text
