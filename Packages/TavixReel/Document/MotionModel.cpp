#include "TavixReel/Document/MotionModel.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<MotionSpring>& fieldsOf(std::type_identity<MotionSpring>) {
    using S = MotionSpring;
    static const Fields<S> table{
        "MotionSpring", {field<&S::zoomResponse>("zoomResponse", "Seconds that a zoom takes to arrive.")
                                .measuredIn(Unit::seconds),
                            field<&S::panResponse>("panResponse", "Seconds that a pan takes to arrive.")
                                .measuredIn(Unit::seconds),
                            field<&S::damping>("damping", "Of the pan; 1 does not swing.")}};
    return table;
}

const Fields<KeyframeEasing>& fieldsOf(std::type_identity<KeyframeEasing>) {
    static const Fields<KeyframeEasing> table{"KeyframeEasing", {}};
    return table;
}

const Alternatives<MotionModel>& alternativesOf(std::type_identity<MotionModel>) {
    static const Alternatives<MotionModel> table{.name = "MotionModel",
        .noun = "motion kind",
        .rows = {flat<MotionModel, KeyframeEasing>("keyframeEasing"),
            keyed<MotionModel, MotionSpring>("spring", "spring").orDefault()}};
    return table;
}

}   // namespace tavix
