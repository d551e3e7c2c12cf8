#include "TavixCore/Theme/BackgroundFill.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Alternatives<BackgroundFill>& alternativesOf(std::type_identity<BackgroundFill>) {
    static const Alternatives<BackgroundFill> table{.name = "BackgroundFill",
        .noun = "background kind",
        .rows = {keyed<BackgroundFill, BackgroundImage>("image", "image").orDefault(),
            keyed<BackgroundFill, RGBAColor>("solid", "color"),
            keyed<BackgroundFill, LinearGradient>("gradient", "gradient")}};
    return table;
}

}   // namespace tavix
