#include "TavixCore/Composition/CompositionSpec.h"

#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionSpec>& fieldsOf(std::type_identity<CompositionSpec>) {
    static const Fields<CompositionSpec> table{.name = "CompositionSpec",
        .rows = {field<&CompositionSpec::schemaVersion>("schemaVersion", "The version of the format."),
            field<&CompositionSpec::output>("output", "The frames that are rendered."),
            field<&CompositionSpec::assetRoot>("assetRoot", "The folder that relative paths hang from."),
            field<&CompositionSpec::fonts>("fonts", "Fonts by a key of your own: a name or a font file.")
                .unlessDefault(),
            field<&CompositionSpec::background>("background", "What is behind everything."),
            field<&CompositionSpec::scenes>("scenes", "The scenes, in order."),
            field<&CompositionSpec::audio>("audio", "What is heard."),
            field<&CompositionSpec::seed>("seed", "Chooses all that looks random.").unlessDefault()},
        // No name of a device animation outlives reading. A formation comes before the motions: its layers
        // have motions of their own.
        .afterRead = [](CompositionSpec& spec) {
            DeviceChoreographyExpander::bake(spec);
            DeviceMotionExpander::bake(spec);
        }};
    return table;
}

}   // namespace tavix
