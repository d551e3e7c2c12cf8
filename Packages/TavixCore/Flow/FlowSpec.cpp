#include "TavixCore/Flow/FlowSpec.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>

namespace tavix {

bool FlowSpec::hasTypography() const {
    return typography ||
           std::ranges::any_of(steps, [](const Step& step) { return step.typography.has_value(); });
}

const Names<OutputConfig::Aspect>& namesOf(std::type_identity<OutputConfig::Aspect>) {
    using enum OutputConfig::Aspect;
    static const Names<OutputConfig::Aspect> table{
        "aspect", {{landscape, "landscape"}, {vertical, "vertical"}}};
    return table;
}

const Names<OutputConfig::Container>& namesOf(std::type_identity<OutputConfig::Container>) {
    using enum OutputConfig::Container;
    static const Names<OutputConfig::Container> table{"container", {{mp4, "mp4"}, {mov, "mov"}}};
    return table;
}

const Names<OutputConfig::Codec>& namesOf(std::type_identity<OutputConfig::Codec>) {
    using enum OutputConfig::Codec;
    static const Names<OutputConfig::Codec> table{"codec", {{h264, "h264"}, {hevc, "hevc"}}};
    return table;
}

const Fields<OutputConfig>& fieldsOf(std::type_identity<OutputConfig>) {
    using O = OutputConfig;
    static const Fields<O> table{
        "OutputConfig", {field<&O::aspect>("aspect", "How the frame lies.").required(),
                            field<&O::width>("width", "How wide it is, in pixels.").required(),
                            field<&O::height>("height", "How high it is, in pixels.").required(),
                            field<&O::fps>("fps", "Frames per second.").required(),
                            field<&O::targetLengthSec>("targetLengthSec", "How long the reel should be."),
                            field<&O::container>("container", "The kind of file.").required(),
                            field<&O::codec>("codec", "How pictures are coded.").required()}};
    return table;
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
