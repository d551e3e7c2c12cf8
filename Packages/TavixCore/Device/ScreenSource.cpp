#include "TavixCore/Device/ScreenSource.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<StillScreen>& fieldsOf(std::type_identity<StillScreen>) {
    static const Fields<StillScreen> table{
        "StillScreen", {field<&StillScreen::path>("path", "The picture file.").as(Role::picture)}};
    return table;
}

const Fields<VideoClip>& fieldsOf(std::type_identity<VideoClip>) {
    using V = VideoClip;
    static const Fields<V> table{"VideoClip",
        {field<&V::path>("path", "The video file.").as(Role::recording),
            field<&V::trimStartSec>("trimStartSec", "Where in the file it starts.")
                .measuredIn(Unit::seconds)
                .unlessDefault(),
            field<&V::trimStartMark>("trimStartMark", "The mark of the recording at which it starts.")
                .as(Role::markTrim, "trimStartSec"),
            field<&V::trimEndSec>("trimEndSec", "Where in the file it ends.").measuredIn(Unit::seconds)}};
    return table;
}

const Fields<ReelClip>& fieldsOf(std::type_identity<ReelClip>) {
    static const Fields<ReelClip> table{
        "ReelClip", {field<&ReelClip::path>("path", "The folder of the reel, whose name ends in .tavixproj.")
                            .as(Role::reelFolder)}};
    return table;
}

const Alternatives<ScreenSource>& alternativesOf(std::type_identity<ScreenSource>) {
    static const Alternatives<ScreenSource> table{.name = "ScreenSource",
        .noun = "screen kind",
        .rows = {flat<ScreenSource, StillScreen>("still"), flat<ScreenSource, VideoClip>("video"),
            flat<ScreenSource, ReelClip>("reel")},
        .fallbackTag = "still"};
    return table;
}

}   // namespace tavix
