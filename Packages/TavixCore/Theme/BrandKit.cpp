#include "TavixCore/Theme/BrandKit.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<BrandKit::AppMode>& namesOf(std::type_identity<BrandKit::AppMode>) {
    using enum BrandKit::AppMode;
    static const Names<BrandKit::AppMode> table{
        "application mode", {{light, "light"}, {dark, "dark"}}, light};
    return table;
}

const Fields<BrandKit::BrandFont>& fieldsOf(std::type_identity<BrandKit::BrandFont>) {
    using F = BrandKit::BrandFont;
    static const Fields<F> table{
        "BrandFont", {field<&F::name>("name", "What the font calls itself.").required(),
                         field<&F::path>("path", "The font file.").required().as(Role::fontPath)}};
    return table;
}

const Fields<BrandKit>& fieldsOf(std::type_identity<BrandKit>) {
    using B = BrandKit;
    static const Fields<B> table{"BrandKit",
        {field<&B::accent>("accent", "The application's accent colour.").required(),
            field<&B::secondary>("secondary", "A second colour, unlike the accent."),
            field<&B::palette>("palette", "Its colours, the most frequent first."),
            field<&B::primaryFontName>("primaryFontName", "What its main font calls itself."),
            field<&B::primaryFontPath>("primaryFontPath", "The file of its main font.").as(Role::fontPath),
            field<&B::fonts>("fonts", "All of its fonts."),
            field<&B::appMode>("appMode", "Whether it looks light or dark."),
            field<&B::sourceBundlePath>("sourceBundlePath", "Where it was found.")}};
    return table;
}

}   // namespace tavix
