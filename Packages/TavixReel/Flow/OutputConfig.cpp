#include "TavixReel/Flow/OutputConfig.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

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
    static const Fields<O> table{"OutputConfig",
        {field<&O::aspect>("aspect", "How the frame lies.").required(),
            field<&O::width>("width", "How wide it is, in pixels.").measuredIn(Unit::pixels).required(),
            field<&O::height>("height", "How high it is, in pixels.").measuredIn(Unit::pixels).required(),
            field<&O::fps>("fps", "Frames per second.").measuredIn(Unit::hertz).required(),
            field<&O::targetLengthSec>("targetLengthSec", "How long the reel should be.")
                .measuredIn(Unit::seconds),
            field<&O::container>("container", "The kind of file.").required(),
            field<&O::codec>("codec", "How pictures are coded.").required()}};
    return table;
}

}   // namespace tavix
