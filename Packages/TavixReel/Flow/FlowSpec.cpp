#include "TavixReel/Flow/FlowSpec.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>

namespace tavix {

bool FlowSpec::hasTypography() const {
    return typography ||
           std::ranges::any_of(steps, [](const Step& step) { return step.typography.has_value(); });
}

const Fields<EntryPoint>& fieldsOf(std::type_identity<EntryPoint>) {
    using E = EntryPoint;
    static const Fields<E> table{
        "EntryPoint", {field<&E::rootViewType>("rootViewType", "The view that is opened.").required(),
                          field<&E::initialState>("initialState", "What it shows at first.")}};
    return table;
}

const Fields<FlowSpec>& fieldsOf(std::type_identity<FlowSpec>) {
    using F = FlowSpec;
    static const Fields<F> table{
        "FlowSpec", {field<&F::name>("name", "The name of the flow.").required(),
                        field<&F::schemaVersion>("schemaVersion", "The version of the format.").required(),
                        field<&F::requestText>("requestText", "The request that it was written from."),
                        field<&F::output>("output", "The reel that is made.").required(),
                        field<&F::entry>("entry", "Where it starts.").required(),
                        field<&F::steps>("steps", "What is done, in order.").required(),
                        field<&F::motion>("motion", "How the camera follows."),
                        field<&F::typography>("typography", "How text looks and moves.")}};
    return table;
}

}   // namespace tavix
