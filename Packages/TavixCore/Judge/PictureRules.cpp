#include "TavixCore/Judge/LintRules.h"

namespace tavix::CompositionLint {

void checkContent(const LayerScope& scope, const ShapeContent& shape, LintReport& report) {
    if (!(shape.widthFraction > 0) || !(shape.heightFraction > 0))
        report.tell(Rule::shapeSize, KeyPath(scope.at, "shape"), "Shape width/heightFraction must be > 0.");
}

void checkContent(const LayerScope& scope, const VideoContent& video, LintReport& report) {
    const KeyPath at(scope.at, "video");
    const VideoClip& clip = video.clip;
    if (clip.path.empty())
        report.tell(Rule::videoPath, KeyPath(at, "path"), "Video layer has an empty path.");
    if (clip.trimEndSec && !(*clip.trimEndSec > clip.trimStartSec))
        report.tell(Rule::videoTrim, KeyPath(at, "trimEndSec"),
            worded(
                "trimEndSec ({}) must be after trimStartSec ({}).", {*clip.trimEndSec, clip.trimStartSec}));
}

void checkContent(const LayerScope& scope, const ImageContent& image, LintReport& report) {
    const KeyPath at(scope.at, "image");
    if (image.path.empty())
        report.tell(Rule::imagePath, KeyPath(at, "path"), "Image layer has an empty path.");
}

}   // namespace tavix::CompositionLint
