// A reel on the screen of a device: its recording as its camera sees it, cut, paced and with its transitions,
// on the clock of the finished reel. Cards and captions belong to a canvas, and stay away.
#pragma once

#include "TavixRender/Composition2D/RecordingPictures.h"
#include "TavixRender/Composition2D/ReelScreen.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class ReelPictures {
public:
    // Of the folder of a reel. What keeps it from being shown is told to the log. Throws media::MediaFault
    // where the machine is to blame.
    ReelPictures(const std::filesystem::path& folder, const RenderLog& log);

    // Nothing where there is no picture. Past the end the last one stays. `approximate` asks for whatever is
    // quick.
    std::optional<imaging::Image> at(double sec, bool approximate = false);
    void rest();

    // How long the reel of that folder goes on. Throws a `Failure` for what is none.
    static double durationSecOf(const std::filesystem::path& folder);

private:
    void open(const std::filesystem::path& folder, const RenderLog& log);

    imaging::Size size_;
    double durationSec_ = 0;
    std::vector<ReelTimeline::ReelSegment> segments_;
    std::optional<RecordingPictures> recording_;
    std::optional<ReelScreen> screen_;
};

}   // namespace tavix
