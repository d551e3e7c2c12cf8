#include "TavixCore/Theme/BackgroundImage.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<BackgroundImage>& fieldsOf(std::type_identity<BackgroundImage>) {
    static const Fields<BackgroundImage> table{"BackgroundImage",
        {field<&BackgroundImage::path>("path", "A picture file, relative to the asset root.")
                .as(Role::picture),
            field<&BackgroundImage::bundledID>(
                "bundledID", "A picture of the catalog, as `tavix presets backgrounds` lists them.")
                .as(Role::background)}};
    return table;
}

}   // namespace tavix
