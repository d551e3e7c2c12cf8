#include "TavixCore/Theme/FontCatalog.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/TextTrimming.h"

namespace tavix {

const Fields<FontOption>& fieldsOf(std::type_identity<FontOption>) {
    static const Fields<FontOption> table{
        "FontOption", {field<&FontOption::id>("id", "The short name.").required(),
                          field<&FontOption::displayName>("displayName", "What people are shown.").required(),
                          field<&FontOption::postScriptName>("postScriptName", "What the font calls itself."),
                          field<&FontOption::fontPath>("fontPath", "The font file.")}};
    return table;
}

namespace FontCatalog {

const FontOption& system() {
    static const FontOption option{"system", "System (SF Pro)", std::nullopt, std::nullopt};
    return option;
}

const std::vector<FontOption>& iosTop10() {
    static const std::vector<FontOption> options = {
        {"helvetica-neue", "Helvetica Neue", "HelveticaNeue-Medium", std::nullopt},
        {"avenir-next", "Avenir Next", "AvenirNext-Medium", std::nullopt},
        {"futura", "Futura", "Futura-Medium", std::nullopt},
        {"gill-sans", "Gill Sans", "GillSans-SemiBold", std::nullopt},
        {"optima", "Optima", "Optima-Regular", std::nullopt},
        {"georgia", "Georgia", "Georgia", std::nullopt},
        {"palatino", "Palatino", "Palatino-Roman", std::nullopt},
        {"baskerville", "Baskerville", "Baskerville", std::nullopt},
        {"american-typewriter", "American Typewriter", "AmericanTypewriter", std::nullopt},
        {"menlo", "Menlo", "Menlo-Regular", std::nullopt},
    };
    return options;
}

const std::vector<FontOption>& standardOptions() {
    static const std::vector<FontOption> options = [] {
        std::vector<FontOption> all{system()};
        all.insert(all.end(), iosTop10().begin(), iosTop10().end());
        return all;
    }();
    return options;
}

std::optional<FontOption> resolve(std::string_view value) {
    const std::string wanted = lowered(trimmed(value));
    if (wanted == "app") return system();
    for (const FontOption& option : standardOptions())
        if (option.id == wanted) return option;
    return std::nullopt;
}

}   // namespace FontCatalog

}   // namespace tavix
