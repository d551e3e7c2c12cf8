#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Text/FontCore.h"
#include "TavixPlatform/Text/LineBreaker.h"
#include "TavixPlatform/Text/LineData.h"
#include "TavixPlatform/Text/PlainText.h"
#include "TavixPlatform/Text/ScriptLanguages.h"

#include <hb-ot.h>
#include <pango/pango.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tavix::text {
namespace {

double pixels(int units) { return double(units) / PANGO_SCALE; }

// A stretch of one font, script and direction, with its glyphs. Positions are code points of the paragraph.
struct Run {
    Owned<PangoItem> item;
    Owned<PangoGlyphString> glyphs;
    std::size_t begin = 0, end = 0;

    int level() const { return item->analysis.level; }
    bool isRightToLeft() const { return level() % 2 == 1; }
};

std::shared_ptr<const GlyphFont> glyphFontOf(PangoFont* font) {
    auto result = std::make_shared<GlyphFont>();
    if (!font) {   // where the machine has none at all
        result->shaper.reset(hb_font_reference(hb_font_get_empty()));
        return result;
    }
    hb_font_t* shaper = pango_font_get_hb_font(font);
    hb_face_t* face = hb_font_get_face(shaper);
    result->shaper.reset(hb_font_create(face));
    int scaleX = 0, scaleY = 0;
    hb_font_get_scale(shaper, &scaleX, &scaleY);
    hb_font_set_scale(result->shaper.get(), scaleX, scaleY);
    unsigned count = 0;
    if (const int* coordinates = hb_font_get_var_coords_normalized(shaper, &count))
        hb_font_set_var_coords_normalized(result->shaper.get(), coordinates, count);
    hb_font_make_immutable(result->shaper.get());
    const Owned<PangoFontDescription> description(pango_font_describe(font));
    if (const char* family = pango_font_description_get_family(description.get())) result->name = family;
    result->hasPictures = hb_ot_color_has_png(face);
    result->hasLayers = hb_ot_color_has_layers(face);
    return result;
}

void addAttribute(PangoAttrList* list, PangoAttribute* attribute, std::size_t begin, std::size_t end) {
    attribute->start_index = static_cast<guint>(begin);
    attribute->end_index = static_cast<guint>(end);
    pango_attr_list_insert(list, attribute);
}

// By the first letter, as rules P2 and P3 of Unicode Standard Annex 9 have it.
PangoDirection directionOf(const std::vector<char32_t>& points) {
    constexpr char32_t leftToRightMark = 0x200E, rightToLeftMark = 0x200F;
    for (const char32_t point : points) {
        if (point == leftToRightMark) return PANGO_DIRECTION_LTR;
        if (point == rightToLeftMark) return PANGO_DIRECTION_RTL;
        if (!g_unichar_isalpha(point)) continue;
        const hb_script_t script = hb_unicode_script(hb_unicode_funcs_get_default(), point);
        return hb_script_get_horizontal_direction(script) == HB_DIRECTION_RTL ? PANGO_DIRECTION_RTL
                                                                              : PANGO_DIRECTION_LTR;
    }
    return PANGO_DIRECTION_LTR;
}

class ParagraphTypesetter {
public:
    ParagraphTypesetter(const StyledText& text, const Paragraph& paragraph, FontCore& core)
        : text_(text), paragraph_(paragraph), core_(core) {
        byteOfPoint_.reserve(paragraph.points.size() + 1);
        for (const char32_t point : paragraph.points) {
            byteOfPoint_.push_back(byteCount_);
            byteCount_ += static_cast<std::size_t>(g_unichar_to_utf8(point, nullptr));
        }
        byteOfPoint_.push_back(byteCount_);
        baseDirection_ = directionOf(paragraph.points);
        context_ = core_.contextFor(fonts(), paragraph.points);
        itemize();
    }

    std::vector<TypesetLine> lines(double maxWidthPx) {
        std::vector<TypesetLine> result;
        std::size_t begin = 0;
        firstRun_ = 0;
        const std::vector<BreakPoint> points = breakPoints();
        for (const std::size_t end : lineEnds(points, maxWidthPx)) {
            imaging::checkStop();
            const bool isLast = end == points.size();
            result.push_back(line(begin, end,
                isLast                       ? LineEnd::last
                : points[end].mayBreakBefore ? LineEnd::atBreak
                                             : LineEnd::insideWord));
            begin = end;
        }
        return result;
    }

private:
    std::size_t byteAt(std::size_t sourcePosition) const {
        const auto& source = paragraph_.sourceOfPoint;
        const auto at = std::ranges::lower_bound(source, sourcePosition);
        return byteOfPoint_[std::min<std::size_t>(std::size_t(at - source.begin()), byteOfPoint_.size() - 1)];
    }

    // Those that are asked for somewhere in it.
    std::vector<Font> fonts() const {
        std::vector<Font> asked{text_.font};
        for (const StyledRange& styled : text_.ranges)
            if (isSet(styled)) asked.push_back(styled.font);
        return asked;
    }
    // Whether a range has a part of this paragraph, and a font of the same core.
    bool isSet(const StyledRange& styled) const {
        return !intersection(styled.range, paragraph_.source).isEmpty() &&
               styled.font.data().core.get() == &core_;
    }

    Owned<PangoAttrList> attributes() const {
        Owned<PangoAttrList> list(pango_attr_list_new());
        const auto setFont = [&](const Font& font, std::size_t begin, std::size_t end) {
            addAttribute(
                list.get(), pango_attr_font_desc_new(FontCore::description(font.data()).get()), begin, end);
        };
        setFont(text_.font, 0, byteCount_);
        for (const StyledRange& styled : text_.ranges) {
            const TextRange part = intersection(styled.range, paragraph_.source);
            if (isSet(styled)) setFont(styled.font, byteAt(part.begin), byteAt(part.end));
        }
        if (!text_.hasLigatures)
            addAttribute(
                list.get(), pango_attr_font_features_new("liga=0,clig=0,dlig=0,hlig=0"), 0, byteCount_);
        for (const LanguageRun& run : languageRuns(paragraph_.points))
            addAttribute(list.get(), pango_attr_language_new(pango_language_from_string(run.language)),
                byteOfPoint_[run.begin], byteOfPoint_[run.end]);
        return list;
    }

    Owned<PangoGlyphString> shaped(const PangoItem& item) const {
        imaging::checkStop();
        Owned<PangoGlyphString> glyphs(pango_glyph_string_new());
        pango_shape_full(paragraph_.text.c_str() + item.offset, item.length, paragraph_.text.c_str(),
            static_cast<int>(byteCount_), &item.analysis, glyphs.get());
        return glyphs;
    }

    void itemize() {
        const Owned<PangoAttrList> list = attributes();
        GList* items = pango_itemize_with_base_dir(context_, baseDirection_, paragraph_.text.c_str(), 0,
            static_cast<int>(byteCount_), list.get(), nullptr);
        std::size_t begin = 0;
        for (GList* node = items; node; node = node->next) {
            Run run;
            run.item.reset(static_cast<PangoItem*>(node->data));
            run.begin = begin;
            run.end = begin += static_cast<std::size_t>(run.item->num_chars);
            run.glyphs = shaped(*run.item);
            runs_.push_back(std::move(run));
        }
        g_list_free(items);
    }

    // In pixels, of each code point of a run, in logical order.
    std::vector<double> widths(const Run& run) const {
        std::vector<int> units(run.end - run.begin);
        PangoGlyphItem glyphItem{};
        glyphItem.item = run.item.get();
        glyphItem.glyphs = run.glyphs.get();
        pango_glyph_item_get_logical_widths(&glyphItem, paragraph_.text.c_str(), units.data());
        std::vector<double> result(units.size());
        std::ranges::transform(units, result.begin(), pixels);
        return result;
    }

    std::vector<BreakPoint> breakPoints() const {
        std::vector<PangoLogAttr> marks(paragraph_.points.size() + 1);
        pango_get_log_attrs(paragraph_.text.c_str(), static_cast<int>(byteCount_), -1,
            pango_context_get_language(context_), marks.data(), static_cast<int>(marks.size()));
        std::vector<BreakPoint> points(paragraph_.points.size());
        for (const Run& run : runs_) {
            const std::vector<double> wide = widths(run);
            for (std::size_t i = run.begin; i < run.end; ++i) points[i].widthPx = wide[i - run.begin];
        }
        for (std::size_t i = 0; i < points.size(); ++i) {
            points[i].isWhite = marks[i].is_white;
            points[i].mayBreakBefore = marks[i].is_line_break;
            points[i].startsCharacter = marks[i].is_cursor_position;
        }
        return points;
    }

    bool isWhite(std::size_t point) const { return g_unichar_isspace(paragraph_.points[point]); }

    // The part of a run within a line. Its glyphs are shaped anew, since letters may join across the break.
    Run part(const Run& run, std::size_t begin, std::size_t end) const {
        Run piece;
        piece.item.reset(pango_item_copy(run.item.get()));
        piece.item->offset = static_cast<int>(byteOfPoint_[begin]);
        piece.item->length = static_cast<int>(byteOfPoint_[end] - byteOfPoint_[begin]);
        piece.item->num_chars = static_cast<int>(end - begin);
        piece.glyphs = shaped(*piece.item);
        piece.begin = begin;
        piece.end = end;
        return piece;
    }

    // Lines come in order, so the search goes on where the last line ended.
    std::vector<const Run*> runsWithin(std::size_t begin, std::size_t end, std::vector<Run>& pieces) {
        std::vector<const Run*> within;
        while (firstRun_ < runs_.size() && runs_[firstRun_].end <= begin) ++firstRun_;
        pieces.reserve(2);   // only the first and the last run can be cut
        for (std::size_t i = firstRun_; i < runs_.size() && runs_[i].begin < end; ++i) {
            const Run& run = runs_[i];
            if (run.begin >= begin && run.end <= end) {
                within.push_back(&run);
            } else {
                pieces.push_back(part(run, std::max(run.begin, begin), std::min(run.end, end)));
                within.push_back(&pieces.back());
            }
        }
        return within;
    }

    // Rule L2 of Unicode Standard Annex 9: from the highest level down to the lowest odd one, stretches of at
    // least that level are turned round.
    static void putInVisualOrder(std::vector<const Run*>& runs) {
        int highest = 0;
        for (const Run* run : runs) highest = std::max(highest, run->level());
        for (int level = highest; level >= 1; --level) {
            for (auto at = runs.begin(); at != runs.end();) {
                const auto isBelow = [level](const Run* run) { return run->level() < level; };
                const auto first = std::find_if_not(at, runs.end(), isBelow);
                at = std::find_if(first, runs.end(), isBelow);
                std::reverse(first, at);
            }
        }
    }

    enum class LineEnd { last, atBreak, insideWord };

    TypesetLine line(std::size_t begin, std::size_t end, LineEnd how) {
        const bool isLast = how == LineEnd::last;
        auto data = std::make_shared<LineData>();
        data->breaksWord = how == LineEnd::insideWord;
        data->range = {begin == 0 ? paragraph_.source.begin : paragraph_.sourceOfPoint[begin],
            isLast ? paragraph_.source.end : paragraph_.sourceOfPoint[end]};
        data->colors = colors();
        data->boxHeightPx = 0.7 * text_.font.sizePx();
        std::size_t inkEnd = end;
        while (!isLast && inkEnd > begin && isWhite(inkEnd - 1)) --inkEnd;
        std::vector<Run> pieces;
        std::vector<const Run*> runs = runsWithin(begin, inkEnd, pieces);
        putInVisualOrder(runs);
        for (const Run* run : runs) place(*run, *data);
        const double edge = baseDirection_ == PANGO_DIRECTION_RTL ? 0 : data->widthPx;
        for (std::size_t i = inkEnd; i < end; ++i)
            data->characters.push_back({paragraph_.sourceOfPoint[i], paragraph_.sourceOfPoint[i + 1], edge,
                edge, baseDirection_ == PANGO_DIRECTION_RTL});
        std::ranges::sort(data->characters, {}, &LineCharacter::begin);
        return TypesetLine(std::move(data));
    }

    std::vector<imaging::Color> colors() const {
        std::vector<imaging::Color> result{text_.color};
        for (const StyledRange& styled : text_.ranges) result.push_back(styled.color);
        return result;
    }

    std::uint32_t colorAt(std::size_t sourcePosition) const {
        const auto after = std::ranges::upper_bound(
            text_.ranges, sourcePosition, {}, [](const StyledRange& styled) { return styled.range.begin; });
        if (after == text_.ranges.begin() || std::prev(after)->range.end <= sourcePosition) return 0;
        return static_cast<std::uint32_t>(after - text_.ranges.begin());
    }

    std::uint32_t fontNumber(PangoFont* font, LineData& data) {
        auto known = std::ranges::find(knownFonts_, font, &KnownFont::font);
        if (known == knownFonts_.end())
            known = knownFonts_.insert(knownFonts_.end(), KnownFont{font, glyphFontOf(font)});
        const std::shared_ptr<const GlyphFont>& glyphs = known->glyphs;
        const auto at = std::ranges::find(data.fonts, glyphs);
        const auto number = static_cast<std::uint32_t>(at - data.fonts.begin());
        if (at == data.fonts.end()) data.fonts.push_back(glyphs);
        return number;
    }

    void place(const Run& run, LineData& data) {
        placeCharacters(run, data);
        placeGlyphs(run, data);
        data.widthPx += std::max(0.0, pixels(pango_glyph_string_get_width(run.glyphs.get())));
    }

    void placeCharacters(const Run& run, LineData& data) const {
        const std::vector<double> wide = widths(run);
        const double total = std::accumulate(wide.begin(), wide.end(), 0.0);
        double before = 0;
        for (std::size_t i = run.begin; i < run.end; ++i) {
            const double width = wide[i - run.begin];
            const double x0 = data.widthPx + (run.isRightToLeft() ? total - before - width : before);
            data.characters.push_back({paragraph_.sourceOfPoint[i], paragraph_.sourceOfPoint[i + 1], x0,
                x0 + width, run.isRightToLeft()});
            before += width;
        }
    }

    // The code point at a byte of a run.
    std::size_t pointAtByte(std::size_t byte) const {
        return std::size_t(std::ranges::lower_bound(byteOfPoint_, byte) - byteOfPoint_.begin());
    }

    void placeGlyphs(const Run& run, LineData& data) {
        const PangoGlyphString& glyphs = *run.glyphs;
        const auto count = static_cast<std::size_t>(glyphs.num_glyphs);
        const std::uint32_t font = fontNumber(run.item->analysis.font, data);
        const auto itemBegin = static_cast<std::size_t>(run.item->offset);
        std::vector<int> starts(glyphs.log_clusters, glyphs.log_clusters + count);
        starts.push_back(run.item->length);
        std::ranges::sort(starts);
        double x = data.widthPx;
        for (std::size_t i = 0; i < count;) {
            const int start = glyphs.log_clusters[i];
            const int next = *std::ranges::upper_bound(starts, start);
            const std::uint32_t begin = paragraph_.sourceOfPoint[pointAtByte(itemBegin + std::size_t(start))];
            const std::uint32_t end = paragraph_.sourceOfPoint[pointAtByte(itemBegin + std::size_t(next))];
            const std::size_t firstGlyph = data.glyphs.size();
            const double clusterX0 = x;
            for (; i < count && glyphs.log_clusters[i] == start; ++i) {
                const PangoGlyphInfo& info = glyphs.glyphs[i];
                if (info.glyph != PANGO_GLYPH_EMPTY) {
                    PlacedGlyph glyph{info.glyph, font, colorAt(begin), begin, end,
                        x + pixels(info.geometry.x_offset), -pixels(info.geometry.y_offset), clusterX0};
                    if (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) glyph.kind = PlacedGlyph::Kind::box;
                    data.glyphs.push_back(glyph);
                }
                x += pixels(info.geometry.width);
            }
            for (std::size_t made = firstGlyph; made < data.glyphs.size(); ++made)
                data.glyphs[made].clusterX1 = x;
        }
    }

    struct KnownFont {
        PangoFont* font;
        std::shared_ptr<const GlyphFont> glyphs;
    };

    const StyledText& text_;
    const Paragraph& paragraph_;
    FontCore& core_;
    PangoContext* context_ = nullptr;   // the core's
    std::size_t byteCount_ = 0;
    std::vector<std::size_t> byteOfPoint_;
    PangoDirection baseDirection_;
    std::vector<Run> runs_;
    std::size_t firstRun_ = 0;
    std::vector<KnownFont> knownFonts_;
};

// An empty paragraph stands as one space.
Paragraph spaceFor(const Paragraph& empty) {
    Paragraph paragraph = empty;
    const auto at = static_cast<std::uint32_t>(empty.source.begin);
    paragraph.text = " ";
    paragraph.points = {U' '};
    paragraph.sourceOfPoint = {at, at};
    return paragraph;
}

}   // namespace

std::vector<TypesetLine> wrappedLines(const StyledText& text, double maxWidthPx) {
    std::vector<TypesetLine> lines;
    FontCore& core = *text.font.data().core;
    const std::vector<Paragraph> paragraphs = paragraphsOf(text.text);
    const std::lock_guard lock(core.mutex);
    for (const Paragraph& paragraph : paragraphs) {
        const Paragraph& set = paragraph.points.empty() ? spaceFor(paragraph) : paragraph;
        for (TypesetLine& line : ParagraphTypesetter(text, set, core).lines(std::max(maxWidthPx, 1.0)))
            lines.push_back(std::move(line));
    }
    return lines;
}

}   // namespace tavix::text
