#include "Engine/Verbs/BrandVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "TavixCore/Support/Document.h"
#include "TavixRender/Brand/BrandExtractor.h"

#include <cmath>
#include <cstdio>

namespace tavix::engine {

namespace {

std::string hexOf(const RGBAColor& color) {
    const auto byte = [](double part) {
        return unsigned(std::lround(std::fmin(std::fmax(part, 0), 1) * 255));
    };
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", byte(color.r), byte(color.g), byte(color.b));
    return text;
}

std::string linesOf(const BrandKit& brand) {
    std::string lines = "accent     " + hexOf(brand.accent) + "\n";
    if (brand.secondary) lines += "secondary  " + hexOf(*brand.secondary) + "\n";
    lines += "palette   ";
    for (const RGBAColor& color : brand.palette) lines += " " + hexOf(color);
    lines += std::string("\nmode       ") + std::string(nameOf(brand.appMode)) + "\n";
    for (const BrandKit::BrandFont& font : brand.fonts)
        lines += "font       " + font.name + "  " + font.path + "\n";
    return lines;
}

}   // namespace

void BrandVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("bundle", bundle_,
        "An application's bundle, a web application's folder, a desktop entry, an Android res folder, or any folder with an icon.",
        "brand needs an application's bundle or folder.");
    arguments.jsonFlag(terminal);
}

void BrandVerb::run(Terminal& terminal) {
    const BrandExtractor::Report report = BrandExtractor::extract(bundle_);
    if (terminal.mode() == Terminal::Mode::json) {
        JsonArray notes;
        for (const std::string& note : report.notes) notes.emplace_back(note);
        return terminal.report(
            {{"brand", Codec<BrandKit>::write(report.brand)}, {"notes", std::move(notes)}});
    }
    terminal.result(linesOf(report.brand));
    for (const std::string& note : report.notes) terminal.tell("  " + note);
}

}   // namespace tavix::engine
