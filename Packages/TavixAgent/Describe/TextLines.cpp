#include "TavixAgent/Describe/TextLines.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/Judge/Outline.h"

#include <algorithm>

namespace tavix {
namespace {

// The characters of the author's text in their order, each with where it stands in the text that is laid out,
// which letter spacing has filled with spaces.
class Untracked {
public:
    Untracked(const TextContent& content)
        : laidOut_(TextCompositionLayer::tracked(content.text, content.trackingEm)) {
        const auto written = KineticMath::characters(content.text);
        std::size_t at = 0;
        for (const std::string_view character : written) {
            const bool isSpace = character == " " && laidOut_.compare(at, 1, " ") != 0;
            begins_.push_back(at);
            characters_.emplace_back(character);
            const std::string_view here = isSpace ? std::string_view("\u2002") : character;
            at += here.size();
            if (!isSpace && laidOut_.size() > content.text.size() && !KineticMath::isLineBreak(character))
                at += separatorAt(at);
        }
    }

    std::string within(const text::TextRange& range) const {
        std::string text;
        for (std::size_t i = 0; i < begins_.size(); ++i)
            if (begins_[i] >= range.begin && begins_[i] < range.end &&
                !KineticMath::isLineBreak(characters_[i]))
                text += characters_[i];
        while (text.ends_with(' ')) text.pop_back();
        return text;
    }

private:
    std::size_t separatorAt(std::size_t at) const {
        for (const std::string_view separator : {std::string_view("\u2002"), std::string_view("\u2009")})
            if (laidOut_.compare(at, separator.size(), separator) == 0) return separator.size();
        return 0;
    }

    std::string laidOut_;
    std::vector<std::size_t> begins_;
    std::vector<std::string> characters_;
};

}   // namespace

std::vector<LineDescription> linesOf(const TextContent& content, const KineticTextLayout::Result& layout,
    const imaging::Affine& motion, const imaging::Rect& canvas) {
    const Untracked text(content);
    std::vector<LineDescription> lines;
    for (const KineticTextLayout::Line& line : layout.lines) {
        const imaging::Rect moved = Outline::of(line.box).transformed(motion).bounds();
        lines.push_back(
            {text.within(line.range), {moved.x, canvas.height - moved.maxY(), moved.width, moved.height}});
    }
    return lines;
}

std::vector<std::string> fontsOf(const KineticTextLayout::Result& layout) {
    std::vector<std::string> fonts;
    for (const KineticTextLayout::Element& element : layout.elements)
        for (const KineticTextLayout::Fragment& fragment : element.fragments)
            for (std::string& name : fragment.line.fontNames())
                if (std::ranges::find(fonts, name) == fonts.end()) fonts.push_back(std::move(name));
    return fonts;
}

}   // namespace tavix
