#include "TavixPlatform/Text/FontStandIns.h"

#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/FontCore.h"

#include <string>

namespace tavix::text {
namespace {

constexpr FontStandIn rows[] = {
    {"americantypewriter", "Nimbus Mono PS"},
    {"arial", "Nimbus Sans"},
    {"avantgarde", "URW Gothic"},
    {"avenir", "Manrope"},
    {"baskerville", "Baskervald ADF Std"},
    {"bookman", "URW Bookman"},
    {"century", "C059"},
    {"courier", "Nimbus Mono PS"},
    {"futura", "URW Gothic"},
    {"georgia", "C059"},
    {"gillsans", "Gillius ADF"},
    {"helvetica", "Nimbus Sans"},
    {"menlo", "DejaVu Sans Mono"},
    {"monaco", "DejaVu Sans Mono"},
    {"optima", "Linux Biolinum O"},
    {"palatino", "P052"},
    {"sfmono", "DejaVu Sans Mono"},
    {"sfpro", "Inter"},
    {"times", "Nimbus Roman"},
    {"verdana", "DejaVu Sans"},
};

// Longer words first, so that "demibold" is not read as "bold".
struct WeightWord {
    std::string_view word;
    double weight;
};
constexpr WeightWord weightWords[] = {{"ultralight", 200}, {"extralight", 200}, {"demibold", 600},
    {"semibold", 600}, {"extrabold", 800}, {"ultrabold", 800}, {"thin", 100}, {"light", 300}, {"medium", 500},
    {"bold", 700}, {"heavy", 800}, {"black", 900}};

std::string plain(std::string_view name) {
    std::string text;
    for (const char letter : loweredAscii(name))
        if (letter != ' ' && letter != '-' && letter != '_') text += letter;
    return text;
}

}   // namespace

std::span<const FontStandIn> fontStandIns() { return rows; }

const FontStandIn* standInFor(std::string_view name) {
    const std::string wanted = plain(name);
    const FontStandIn* best = nullptr;
    for (const FontStandIn& row : rows)
        if (wanted.starts_with(row.nameBegin) && (!best || row.nameBegin.size() > best->nameBegin.size()))
            best = &row;
    return best;
}

double weightToldBy(std::string_view name) {
    const std::string text = plain(name);
    for (const WeightWord& row : weightWords)
        if (text.find(row.word) != std::string::npos) return row.weight;
    return 400;
}

}   // namespace tavix::text
