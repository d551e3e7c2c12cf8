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
            field<&VideoContent::clip, &VideoClip::trimStartSec>(
                "trimStartSec", "Where in the file it begins.")
                .measuredIn(Unit::seconds)
                .unlessDefault(),
            field<&VideoContent::clip, &VideoClip::trimEndSec>("trimEndSec", "Where in the file it ends.")
                .measuredIn(Unit::seconds),
            field<&VideoContent::fit>("fit", "Whether it fills its place or fits into it."),
            field<&VideoContent::rect>(
                "rect", "Its place, in shares of the canvas from the top left; the whole canvas when absent.")
                .measuredIn(Unit::canvasSides),
            field<&VideoContent::cornerRadiusFraction>(
                "cornerRadiusFraction", "How round its corners are; 0.5 is a half circle.")
                .measuredIn(Unit::shorterSides)
                .unlessDefault(),
            field<&VideoContent::sourceRect>(
                "sourceRect", "The part of the clip that is shown, in shares of it from its top left.")
                .measuredIn(Unit::ownSides),
            field<&VideoContent::holdLastFrame>(
                "holdLastFrame", "Whether the last frame stays when the clip is over; it goes otherwise.")
                .unlessDefault()}};
    return table;
}

}   // namespace tavix
