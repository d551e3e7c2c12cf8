#include "TavixCore/Document/CompositionSpec.h"

#include "TavixCore/Document/DeviceAnimationBake.h"
#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionSpec>& fieldsOf(std::type_identity<CompositionSpec>) {
    static const Fields<CompositionSpec> table{.name = "CompositionSpec",
        .rows = {field<&CompositionSpec::schemaVersion>("schemaVersion", "The version of the format."),
            field<&CompositionSpec::output>("output", "The frames that are rendered."),
            field<&CompositionSpec::assetRoot>("assetRoot", "The folder that relative paths hang from."),
            field<&CompositionSpec::fonts>("fonts", "Fonts by a key of your own: a name or a font file.")
                .as(Role::fontFile)
                .unlessDefault(),
            field<&CompositionSpec::background>("background", "What is behind everything."),
            field<&CompositionSpec::scenes>("scenes", "The scenes, in order."),
            field<&CompositionSpec::audio>("audio", "What is heard."),
            field<&CompositionSpec::seed>("seed", "Chooses all that looks random.").unlessDefault(),
            field<&CompositionSpec::lint>("lint", "How lint judges this document.")},
        .afterRead = bakeDeviceAnimations};
    return table;
}

}   // namespace tavix
