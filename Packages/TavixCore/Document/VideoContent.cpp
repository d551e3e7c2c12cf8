#include "TavixCore/Document/VideoContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<VideoFit>& namesOf(std::type_identity<VideoFit>) {
    static const Names<VideoFit> table{
        "video fit", {{VideoFit::cover, "cover"}, {VideoFit::contain, "contain"}}, VideoFit::cover};
    return table;
}

const Fields<VideoContent>& fieldsOf(std::type_identity<VideoContent>) {
    static const Fields<VideoContent> table{"VideoContent",
        {field<&VideoContent::clip, &VideoClip::path>("path", "The movie file, relative to the asset root.")
                .as(Role::clip),
            field<&VideoContent::clip, &VideoClip::trimStartSec>("trimStartSec", "Where the clip begins.")
                .unlessDefault(),
            field<&VideoContent::clip, &VideoClip::trimEndSec>("trimEndSec", "Where the clip ends."),
            field<&VideoContent::fit>("fit", "Whether it fills its place or fits into it."),
            field<&VideoContent::rect>("rect", "Its place, in fractions of the canvas."),
            field<&VideoContent::cornerRadiusFraction>("cornerRadiusFraction", "How round its corners are.")
                .unlessDefault(),
            field<&VideoContent::sourceRect>("sourceRect", "The part of the clip that is shown."),
            field<&VideoContent::holdLastFrame>("holdLastFrame", "Whether the last frame stays.")
                .unlessDefault()}};
    return table;
}

}   // namespace tavix
