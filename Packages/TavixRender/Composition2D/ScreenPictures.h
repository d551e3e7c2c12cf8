// What is seen on the screen of a device: a still, or a clip or a reel, whose last picture stays on.
#pragma once

#include "TavixCore/Device/ScreenSource.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Composition2D/ReelPictures.h"
#include "TavixRender/Composition2D/SequentialClipReader.h"

#include <optional>

namespace tavix {

// Used by one thread at a time.
class ScreenPictures {
public:
    // A clip is drawn within that size, where one is given.
    ScreenPictures(const ScreenSource& source, bool holdsLastFrame, const LayerBuild& build,
        const std::optional<imaging::Size>& shownPx = {});

    // Of a still that can be read.
    const std::optional<imaging::Image>& still() const { return still_; }
    // Nothing where there is no picture. `approximate` asks a clip for whatever is quick.
    std::optional<imaging::Image> at(double localSec, bool approximate = false) {
        if (reel_) return reel_->at(localSec, approximate);
        return clip_ ? clip_->frame(localSec, approximate) : still_;
    }
    // Opens a clip, with its first picture; false where there is none to open.
    bool open() {
        if (!clip_ || clip_->isOpen()) return false;
        clip_->frame(0);
        return true;
    }
    void rest() {
        if (clip_) clip_->rest();
        if (reel_) reel_->rest();
    }

private:
    std::optional<imaging::Image> still_;
    std::optional<SequentialClipReader> clip_;
    std::optional<ReelPictures> reel_;
};

}   // namespace tavix
