#include "TavixReel/Document/SideCaptionSettings.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<SideCaptionSettings>& fieldsOf(std::type_identity<SideCaptionSettings>) {
    using S = SideCaptionSettings;
    static const Fields<S> table{"SideCaptionSettings",
        {field<&S::enabled>("enabled", "Whether the device steps aside for captions."),
            field<&S::gapSec>("gapSec", "Captions further apart move it anew, in seconds.")
                .measuredIn(Unit::seconds)
                .atLeast(0),
            field<&S::firstParkLeft>("firstParkLeft", "Whether it goes to the left at first.")}};
    return table;
}

}   // namespace tavix
