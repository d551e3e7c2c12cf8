#include "TavixPlatform/Text/FontCore.h"

#include "TavixPlatform/Text/FallbackFamilies.h"

#include <hb-ot.h>
#include <hb.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cmath>
#include <functional>
#include <new>

namespace tavix::text {
namespace {

// A description names its face by number; `settle` puts the face in its place.
constexpr std::string_view facePrefix = "tavix-face-";

const FcChar8* chars(const std::string& text) { return reinterpret_cast<const FcChar8*>(text.c_str()); }

std::string stringOf(const FcPattern* pattern, const char* object, int which = 0) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, which, &value) != FcResultMatch || !value) return {};
    return reinterpret_cast<const char*>(value);
}

int integerOf(const FcPattern* pattern, const char* object, int fallback) {
    int value = fallback;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : fallback;
}

double weightOf(const FcPattern* pattern) {
    double value = FC_WEIGHT_REGULAR;
    if (FcPatternGetDouble(pattern, FC_WEIGHT, 0, &value) != FcResultMatch) return 400;
    return FcWeightToOpenTypeDouble(value);
}

std::atomic<bool> keepsDefaultConfig = false;

// Pango has fontconfig load its default configuration, whoever gives its maps another one, and so would read
// the machine's fonts twice. An empty configuration in the place of the default keeps it from that.
void forgoDefaultConfig() {
    if (keepsDefaultConfig) return;
    static const bool isForgone = FcConfigSetCurrent(Owned<FcConfig>(FcConfigCreate()).get());
    if (!isForgone) throw std::bad_alloc();
}

FontMetrics metricsOf(hb_font_t* font, double sizePx) {
    int scaleX = 0, scaleY = 0;
    hb_font_get_scale(font, &scaleX, &scaleY);
    hb_font_extents_t extents{};
    if (!hb_font_get_h_extents(font, &extents) || scaleY == 0) return {0.8 * sizePx, 0.2 * sizePx, 0};
    const auto pixels = [](int units) { return std::max(0.0, double(units) / PANGO_SCALE); };
    return {pixels(extents.ascender), pixels(-extents.descender), pixels(extents.line_gap)};
}

std::vector<VariationAxis> axesOf(hb_face_t* face) {
    unsigned count = hb_ot_var_get_axis_count(face);
    std::vector<hb_ot_var_axis_info_t> infos(count);
    hb_ot_var_get_axis_infos(face, 0, &count, infos.data());
    std::vector<VariationAxis> axes;
    for (const hb_ot_var_axis_info_t& info : infos)
        axes.push_back({info.tag, info.min_value, info.default_value, info.max_value});
    return axes;
}

struct Freed {
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
};

PangoWeight pangoWeight(double weight) { return static_cast<PangoWeight>(std::lround(weight)); }

}   // namespace

void keepDefaultFontConfig() { keepsDefaultConfig = true; }

std::string loweredAscii(std::string_view text) {
    std::string result(text);
    for (char& letter : result)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return result;
}

FontMap::FontMap(Owned<FcConfig> fonts, const FontCore& owner, bool fills)
    : config(std::move(fonts)), core(owner), fillsIn(fills),
      map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)) {
    auto* const fontconfigMap = PANGO_FC_FONT_MAP(map.get());
    pango_fc_font_map_set_config(fontconfigMap, config.get());
    pango_fc_font_map_set_default_substitute(
        fontconfigMap,
        [](FcPattern* pattern, gpointer self) {
            const auto& asked = *static_cast<const FontMap*>(self);
            asked.core.settle(pattern, asked.fillsIn);
        },
        this, nullptr);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map.get()), 72);
    context.reset(pango_font_map_create_context(map.get()));
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    pango_context_set_language(context.get(), pango_language_from_string("en"));
}

FontMap::~FontMap() {
    context.reset();
    pango_fc_font_map_shutdown(PANGO_FC_FONT_MAP(map.get()));
}

FontCore::FontCore(FontPlaces places) : places_(std::move(places)), config_(places_.config()) {
    if (const FcFontSet* set = FcConfigGetFonts(config_.get(), FcSetSystem)) takeFaces(*set);
    forgoDefaultConfig();
}

FontMap& FontCore::mapOfAll() {
    if (!all_)
        all_ = std::make_unique<FontMap>(Owned<FcConfig>(FcConfigReference(config_.get())), *this, true);
    return *all_;
}

FontMap* FontCore::mapOf(const std::string& family) {
    if (!nameOfFile_.empty()) return nullptr;
    const auto [entry, isNew] = ofFamily_.try_emplace(family);
    if (!isNew) return entry->second.get();
    const auto numbers = byFamily_.find(loweredAscii(family));
    if (numbers == byFamily_.end()) return nullptr;
    std::vector<std::string> files;
    for (const std::size_t number : numbers->second) files.push_back(faces_[number]->file);
    Owned<FcConfig> config = places_.configOf(files);
    // Where one is missing, its faces are in the map of all alone.
    const FcFontSet* found = FcConfigGetFonts(config.get(), FcSetSystem);
    if (found && std::size_t(found->nfont) >= numbers->second.size())
        entry->second = std::make_unique<FontMap>(std::move(config), *this, false);
    return entry->second.get();
}

PangoContext* FontCore::contextFor(std::span<const Font> fonts, std::span<const char32_t> points) {
    // Emoji have their own font, even where the one that is asked for has them. The first that is shown as
    // one by itself is U+231A; others need characters from U+20D0 on after them.
    constexpr char32_t firstOfEmoji = 0x20d0;
    const std::string& family = fonts.front().familyName();
    const auto isOfFamily = [&](const Font& font) {
        return font.familyName() == family && font.data().face->characters &&
               std::ranges::all_of(points, [&](char32_t point) {
                   return point < firstOfEmoji && FcCharSetHasChar(font.data().face->characters.get(), point);
               });
    };
    FontMap* const own = std::ranges::all_of(fonts, isOfFamily) ? mapOf(family) : nullptr;
    return (own ? *own : mapOfAll()).context.get();
}

// The order of faces must not hang on the order in which a file system lists its files.
void FontCore::takeFaces(const FcFontSet& set) {
    std::vector<FaceRef> found;
    for (int i = 0; i < set.nfont; ++i) {
        const FcPattern* pattern = set.fonts[i];
        // What HarfBuzz reads: outlines and pictures in tables, not the older kinds of the same family.
        const std::string format = stringOf(pattern, FC_FONTFORMAT);
        if (format != "TrueType" && format != "CFF") continue;
        FcBool isRange = FcFalse;   // a variable font stands for itself by its standard instance
        if (FcPatternGetBool(pattern, FC_VARIABLE, 0, &isRange) == FcResultMatch && isRange) continue;
        Face face{stringOf(pattern, FC_FAMILY), stringOf(pattern, FC_POSTSCRIPT_NAME),
            stringOf(pattern, FC_FULLNAME), stringOf(pattern, FC_FILE), integerOf(pattern, FC_INDEX, 0),
            weightOf(pattern), integerOf(pattern, FC_WIDTH, FC_WIDTH_NORMAL),
            integerOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN};
        FcCharSet* characters = nullptr;
        if (FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters) == FcResultMatch)
            face.characters = {FcCharSetCopy(characters), Released()};
        if (!face.family.empty() && !face.file.empty())
            found.push_back(std::make_shared<const Face>(std::move(face)));
    }
    std::ranges::sort(found, [](const FaceRef& a, const FaceRef& b) {
        return std::tie(a->family, a->weight, a->file, a->index) <
               std::tie(b->family, b->weight, b->file, b->index);
    });
    std::unordered_map<std::string, std::size_t> names;   // a PostScript name goes before a full one
    for (FaceRef& face : found) {
        byFamily_[loweredAscii(face->family)].push_back(faces_.size());
        names.try_emplace(loweredAscii(face->fullName), faces_.size());
        faces_.push_back(std::move(face));
    }
    for (std::size_t number = faces_.size() - found.size(); number < faces_.size(); ++number)
        if (!faces_[number]->postScriptName.empty())
            names.insert_or_assign(loweredAscii(faces_[number]->postScriptName), number);
    for (auto& [name, number] : names) byName_.insert_or_assign(name, number);
    std::vector<std::string> families;
    for (const FaceRef& face : faces_)
        if (families.empty() || families.back() != face->family) families.push_back(face->family);
    fallbackFamilies_ = fallbackFamilies(std::move(families));
}

// Called for every pattern before fonts are matched with it: puts the face in the place of its number, lists
// what fills in for missing characters, and fixes all that a machine might set differently.
void FontCore::settle(FcPattern* pattern, bool fillsIn) const {
    const std::string family = stringOf(pattern, FC_FAMILY), language = stringOf(pattern, FC_LANG);
    FcPatternDel(pattern, FC_FAMILY);
    if (family.starts_with(facePrefix)) {
        std::size_t number = faces_.size();
        std::from_chars(family.data() + facePrefix.size(), family.data() + family.size(), number);
        if (number < faces_.size()) {
            const Face& face = *faces_[number];
            FcPatternAddString(pattern, FC_FILE, chars(face.file));
            FcPatternAddString(pattern, FC_FAMILY, chars(face.family));
            if (!face.postScriptName.empty())
                FcPatternAddString(pattern, FC_POSTSCRIPT_NAME, chars(face.postScriptName));
        }
    }
    if (fillsIn)
        for (const std::string& name : orderedFor(fallbackFamilies_, language, family == "emoji"))
            FcPatternAddString(pattern, FC_FAMILY, chars(name));
    for (const char* object :
        {FC_HINTING, FC_AUTOHINT, FC_EMBOLDEN, FC_EMBEDDED_BITMAP, FC_ANTIALIAS, FC_RGBA})
        FcPatternDel(pattern, object);
    FcPatternAddBool(pattern, FC_HINTING, FcFalse);
    FcPatternAddBool(pattern, FC_AUTOHINT, FcFalse);
    FcPatternAddBool(pattern, FC_EMBOLDEN, FcFalse);
    FcPatternAddBool(pattern, FC_ANTIALIAS, FcTrue);
    FcPatternAddInteger(pattern, FC_RGBA, FC_RGBA_NONE);
}

std::shared_ptr<FontCore> FontCore::withFile(const FontPlaces& places, const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) return nullptr;   // a pipe would keep us waiting
    const Owned<FcFontSet> faces(FcFontSetCreate());
    const std::string path = file.string();
    int count = 0;
    FcFreeTypeQueryAll(chars(path), static_cast<unsigned>(-1), nullptr, &count, faces.get());
    if (faces->nfont == 0) return nullptr;
    auto core = std::make_shared<FontCore>(places);
    core->takeFile(path, *faces);
    return core->nameOfFile_.empty() ? nullptr : core;
}

void FontCore::takeFile(const std::string& path, const FcFontSet& faces) {
    if (!FcConfigAppFontAddFile(config_.get(), chars(path))) return;
    takeFaces(faces);
    nameOfFile_ = stringOf(faces.fonts[0], FC_POSTSCRIPT_NAME);
    if (nameOfFile_.empty()) nameOfFile_ = stringOf(faces.fonts[0], FC_FAMILY);
}

Owned<PangoFontDescription> FontCore::description(const FontData& font) {
    Owned<PangoFontDescription> description(pango_font_description_new());
    const std::string family = std::string(facePrefix) + std::to_string(font.faceNumber);
    pango_font_description_set_family(description.get(), family.c_str());
    const auto moved = font.variations.find(weightAxis);
    const double weight = moved == font.variations.end() ? font.face->weight : moved->second;
    pango_font_description_set_weight(description.get(), pangoWeight(weight));
    pango_font_description_set_style(
        description.get(), font.face->isItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(description.get(), std::round(font.sizePx * PANGO_SCALE));
    std::string variations;
    for (const auto& [tag, value] : font.variations) {
        char letters[5] = {};
        hb_tag_to_string(tag, letters);
        variations.append(variations.empty() ? "" : ",").append(letters).append("=") += std::to_string(value);
    }
    if (!variations.empty()) pango_font_description_set_variations(description.get(), variations.c_str());
    return description;
}

Font FontCore::fontOf(std::size_t faceNumber, double sizePx, std::map<std::uint32_t, double> variations) {
    auto data = std::make_shared<FontData>();
    data->core = shared_from_this();
    static const FaceRef noFace = std::make_shared<const Face>();
    data->face = faceNumber < faces_.size() ? faces_[faceNumber] : noFace;
    data->faceNumber = faceNumber;
    data->sizePx = std::clamp(sizePx, 1.0, 4096.0);
    data->variations = std::move(variations);
    return Font(std::move(data));
}

FontMetrics FontCore::metrics(const FontData& data) {
    const std::lock_guard lock(mutex);
    if (data.metrics) return *data.metrics;
    FontMap* const own = mapOf(data.face->family);
    const FontMap& fonts = own ? *own : mapOfAll();
    const Owned<PangoFont> font(
        pango_font_map_load_font(fonts.map.get(), fonts.context.get(), description(data).get()));
    hb_font_t* const shaper = font ? pango_font_get_hb_font(font.get()) : nullptr;
    return data.metrics.emplace(shaper ? metricsOf(shaper, data.sizePx) : FontMetrics());
}

const std::vector<VariationAxis>& FontCore::axes(const FontData& data) {
    const std::lock_guard lock(mutex);
    const auto [entry, isNew] = axes_.try_emplace(data.faceNumber);
    if (!isNew) return entry->second;
    constexpr unsigned faceBits = 0xffff;   // of the file; the others choose an instance
    const std::unique_ptr<hb_blob_t, Freed> file(hb_blob_create_from_file(data.face->file.c_str()));
    const std::unique_ptr<hb_face_t, Freed> face(
        hb_face_create(file.get(), static_cast<unsigned>(data.face->index) & faceBits));
    return entry->second = axesOf(face.get());
}

std::optional<std::size_t> FontCore::nearestInFamily(const Face& like, double weight) const {
    const auto family = byFamily_.find(loweredAscii(like.family));
    if (family == byFamily_.end()) return std::nullopt;
    const auto distance = [&](std::size_t number) {
        const Face& face = *faces_[number];
        return std::tuple(face.isItalic != like.isItalic, std::abs(face.width - like.width),
            std::abs(face.weight - weight), face.weight < weight);
    };
    return *std::ranges::min_element(family->second, {}, distance);
}

std::optional<std::size_t> FontCore::faceInFamily(std::string_view family, double weight) const {
    Face upright;
    upright.family = family;
    return nearestInFamily(upright, weight);
}

std::optional<Font> FontCore::find(std::string_view name, double sizePx) {
    const std::lock_guard lock(mutex);
    if (const auto face = byName_.find(loweredAscii(name)); face != byName_.end())
        return fontOf(face->second, sizePx, {});
    if (const auto face = faceInFamily(name, 400)) return fontOf(*face, sizePx, {});
    return std::nullopt;
}

std::optional<Font> FontCore::anyInFamily(std::string_view family, double weight, double sizePx) {
    const std::lock_guard lock(mutex);
    if (const auto face = faceInFamily(family, weight)) return fontOf(*face, sizePx, {});
    return std::nullopt;
}

Font FontCore::first(double sizePx) {
    const std::lock_guard lock(mutex);
    return fontOf(0, sizePx, {});
}

}   // namespace tavix::text
