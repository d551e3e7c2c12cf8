// What happens in a finished reel, and when: everything on the film's own clock.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Camera/CameraTrajectory.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Time/ReelTimeline.h"

#include <string>
#include <vector>

namespace tavix::engine {

struct ReelStory {
    struct StepAt {
        double atSec;
        Timeline::Event event;
    };
    struct CameraMove {
        double atSec;
        CameraKeyframe keyframe;
    };
    struct TextAt {
        TimeRangeSec range;
        std::string text;
        bool moves;
    };
    struct CardAt {
        TimeRangeSec range;
        std::string headline;
    };
    struct CutAt {
        double atSec, droppedSec;
    };
    struct PaceAt {
        TimeRangeSec range;
        double speed;
    };
    struct TransitionAt {
        TimeRangeSec range;
        TransitionStyle style;
    };

    double durationSec = 0, recordedSec = 0;
    EffectsOutput output;
    Timeline::Video video;
    std::vector<StepAt> steps;
    std::vector<CameraMove> camera;
    std::vector<CutAt> cuts;
    std::vector<PaceAt> paces;
    std::vector<TextAt> captions;
    std::vector<CardAt> cards;
    std::vector<TransitionAt> transitions;
    std::vector<CameraSample> path;   // evenly over the duration, both ends included
};

// `preCutDurationSec`: how much of the recording the reel takes.
ReelStory storyOf(const EffectsSpec& spec, const Timeline& timeline, double preCutDurationSec);

std::string linesOf(const ReelStory& story);
JsonObject jsonOf(const ReelStory& story);

}   // namespace tavix::engine
