#include "TavixReel/Recording/DoneReport.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<DoneReport::StepMark>& fieldsOf(std::type_identity<DoneReport::StepMark>) {
    using M = DoneReport::StepMark;
    static const Fields<M> table{
        "StepMark", {field<&M::index>("index", "The number of the step.").required(),
                        field<&M::startedAt>("startedAt", "When it started, on the device's clock.")
                            .measuredIn(Unit::seconds)
                            .required(),
                        field<&M::endedAt>("endedAt", "When it ended, on the device's clock.")
                            .measuredIn(Unit::seconds)
                            .required(),
                        field<&M::rect>("rect", "Where its target stood, in points."),
                        field<&M::type>("type", "What was done; without it, a tap."),
                        field<&M::label>("label", "The name of its target."),
                        field<&M::actionAt>("actionAt", "When the gesture landed, on the device's clock.")
                            .measuredIn(Unit::seconds),
                        field<&M::motionEndAt>("motionEndAt", "When its motion ended, on the device's clock.")
                            .measuredIn(Unit::seconds)}};
    return table;
}

const Fields<DoneReport>& fieldsOf(std::type_identity<DoneReport>) {
    using D = DoneReport;
    static const Fields<D> table{
        "DoneReport", {field<&D::flowStart>("flowStart", "The go, on the device's clock.")
                              .measuredIn(Unit::seconds)
                              .required(),
                          field<&D::flowEnd>("flowEnd", "The end of the run, on the device's clock.")
                              .measuredIn(Unit::seconds)
                              .required(),
                          field<&D::steps>("steps", "What became of each step.").required(),
                          field<&D::displayScale>("displayScale", "Pixels per point; without it, 1.")
                              .measuredIn(Unit::times),
                          field<&D::logicalSize>("logicalSize", "The device's screen, in points.")}};
    return table;
}

}   // namespace tavix
