#include "TavixBase/Utf8.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace tavix::FilmJudge {
namespace {

using CompositionLint::findingOf;
using CompositionLint::Rule;
using KineticTextLayout::Result;

constexpr double fewPixels = 4;   // of being moved, which nobody sees

std::string px(double length) { return decimals(std::round(length), 0); }

imaging::Rect linesOf(const Result& layout) {
    imaging::Rect all;
    for (const KineticTextLayout::Line& line : layout.lines) all = imaging::unionOf(all, line.box);
    return all;
}

// Whether a line ends within a word whose letters spaces set apart, between any two of which a line may end.
bool partsTrackedWord(const Result& layout, const TextContent& content) {
    const std::string laidOut = TextCompositionLayer::tracked(content.text, content.trackingEm);
    if (laidOut == content.text) return false;
    std::set<std::size_t> ends;   // of words, in letters from the beginning
    std::size_t letters = 0;
    for (const KineticMath::Word& word : KineticMath::words(content.text))
        ends.insert(letters += word.range.end - word.range.begin);
    letters = 0;
    for (const KineticTextLayout::Line& line : layout.lines) {
        const std::string_view text =
            std::string_view(laidOut).substr(line.range.begin, line.range.end - line.range.begin);
        for (const std::string_view character : KineticMath::characters(text))
            if (!utf8::isWhiteSpace(utf8::codePointAt(character, 0).value)) ++letters;
        if (letters > 0 && !ends.contains(letters)) return true;
    }
    return false;
}

void wordsStayWhole(const TextContent& content, const Result& layout, const std::string& name,
    const std::string& path, std::vector<Finding>& findings) {
    const auto broken = std::ranges::count_if(layout.lines, &KineticTextLayout::Line::breaksWord);
    if (broken == 0 && partsTrackedWord(layout, content)) {
        findings.push_back(findingOf(Rule::wordBroken, path + ".text",
            name + " is broken inside a word: its letters are set apart by trackingEm, and a line of " +
                px(layout.roomWidth) + " px has no room for all of it.",
            "Make trackingEm or sizeFraction smaller, maxWidthFraction larger, or end lines by line feeds."));
        return;
    }
    if (broken == 0) return;
    findings.push_back(findingOf(Rule::wordBroken, path + ".text",
        name + " is broken inside a word: a line has room for " + px(layout.roomWidth) +
            " px, and a word is wider at this size.",
        "Make sizeFraction smaller or maxWidthFraction larger."));
}

bool isTooLarge(const Result& layout) {
    const imaging::Rect lines = linesOf(layout);
    return lines.height > layout.canvasHeight || lines.width > layout.canvasWidth;
}

void fitsItsPlace(
    const Result& layout, const std::string& name, const std::string& path, std::vector<Finding>& findings) {
    findings.push_back(findingOf(Rule::textOverflow, path + ".text",
        name + " takes " + std::to_string(layout.lines.size()) + " lines, " + px(linesOf(layout).height) +
            " px high, in a frame of " + px(layout.canvasHeight) + " px.",
        "Make it smaller, shorter or wider, or let several layers say it one after another."));
}

void staysWhereItIs(const Result& layout, const CompositionLayer& layer, const std::string& name,
    const std::string& path, std::vector<Finding>& findings) {
    if (!(std::hypot(layout.movedX, layout.movedY) > fewPixels)) return;
    const std::string to = "{\"x\": " + px(layer.position.x + layout.movedX) +
                           ", \"y\": " + px(layer.position.y + layout.movedY) + "}";
    findings.push_back(findingOf(Rule::textMoved, path + ".position",
        name + " is drawn " + px(std::hypot(layout.movedX, layout.movedY)) +
            " px from where it is put, to stay inside the frame with its margins.",
        "Put it at " + to + ", where it is drawn, or make it smaller."));
}

}   // namespace

void textsFit(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings) {
    for (std::size_t l = 0; l < geometry.layers(scene).size(); ++l) {
        const CompositionGeometry::Layer& entry = geometry.layers(scene)[l];
        const Result* layout = entry.content ? entry.content->layout() : nullptr;
        if (layout == nullptr || layout->lines.empty()) continue;
        const std::string path = pathOf(scene, l), name = nameOf(*entry.layer);
        wordsStayWhole(std::get<TextContent>(entry.layer->content), *layout, name, path, findings);
        if (isTooLarge(*layout))
            fitsItsPlace(*layout, name, path, findings);
        else
            staysWhereItIs(*layout, *entry.layer, name, path, findings);
    }
}

}   // namespace tavix::FilmJudge
