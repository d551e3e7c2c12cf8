#include "TavixReel/Document/CameraKeyframe.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CameraKeyframe>& fieldsOf(std::type_identity<CameraKeyframe>) {
    using K = CameraKeyframe;
    static const Fields<K> table{"CameraKeyframe",
        {field<&K::tSec>("tSec", "When the camera starts for it, in seconds.")
                .measuredIn(Unit::seconds)
                .required(),
            field<&K::scale>("scale", "The zoom; 1 shows the whole recording.")
                .measuredIn(Unit::times)
                .required(),
            field<&K::centerPx>("centerPx", "What it looks at, in pixels of the recording.")
                .measuredIn(Unit::pixels)
                .required(),
            field<&K::easing>("easing", "How it is reached, where the camera follows keyframes.")
                .required()}};
    return table;
}

}   // namespace tavix
