#include "TavixRender/Composition2D/PacedFootage.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tavix {

using imaging::Image;

namespace {

constexpr double longestWalkSec = 2;     // a step above this starts from a sync frame again
constexpr double longestFadeSec = 0.1;   // of recorders that leave out pictures in which nothing changes
constexpr double leastShare = 0.004;     // of a mix: less than one level in 255
constexpr double toleranceSec = media::timestampToleranceSec;

}   // namespace

PacedFootage::PacedFootage(std::unique_ptr<media::VideoSource> source) : source_(std::move(source)) {}

bool PacedFootage::open(double fromSec) {
    pictures_.clear();
    hasEnded_ = false;
    try {
        frames_ = source_->framesFrom(fromSec, std::numeric_limits<double>::infinity(), media::Pace::steady);
    } catch (const media::MediaError&) {
        hasFailed_ = true;   // told by whoever reads the recording at its own pace
    }
    return !hasFailed_;
}

void PacedFootage::dropBefore(double fromSec) {
    while (pictures_.size() > 1 && pictures_[1].ptsSec() <= fromSec + toleranceSec) pictures_.pop_front();
}

// Whether there is a picture for the time; up to a picture after it, if the film has one and there is room.
bool PacedFootage::cover(double fromSec, double toSec) {
    if (hasFailed_) return false;
    const bool isBehind = fromSec < lastFromSec_ - toleranceSec;
    const bool isFarAhead =
        !hasEnded_ && !pictures_.empty() && fromSec > pictures_.back().ptsSec() + longestWalkSec;
    if ((!frames_ || isBehind || isFarAhead) && !open(fromSec)) return false;
    lastFromSec_ = fromSec;
    dropBefore(fromSec);
    while (!hasEnded_ && pictures_.size() <= mostMixed &&
           (pictures_.empty() || pictures_.back().ptsSec() <= toSec + toleranceSec)) {
        auto picture = frames_->next();
        hasEnded_ = !picture;
        if (picture) pictures_.push_back(std::move(*picture));
        dropBefore(fromSec);
    }
    return !pictures_.empty();
}

std::optional<Image> PacedFootage::passing(double fromSec, double toSec) {
    if (!cover(fromSec, toSec)) return std::nullopt;
    Image mix = pictures_.front().image();
    double mixedSec = 0;
    for (std::size_t i = 0; i < std::min(pictures_.size(), mostMixed); ++i) {
        const double startSec = i == 0 ? fromSec : std::max(pictures_[i].ptsSec(), fromSec);
        const double endSec = i + 1 < pictures_.size() ? std::min(pictures_[i + 1].ptsSec(), toSec) : toSec;
        const double shownSec = endSec - startSec;
        if (shownSec <= toleranceSec) continue;
        mixedSec += shownSec;
        const Image& picture = pictures_[i].image();
        mix = mixedSec == shownSec ? picture : picture.withOpacity(shownSec / mixedSec).over(mix);
    }
    return mix;
}

std::optional<Image> PacedFootage::between(double atSec) {
    if (!cover(atSec, atSec)) return std::nullopt;
    const Image& picture = pictures_.front().image();
    if (pictures_.size() < 2) return picture;
    const double dueSec = pictures_[1].ptsSec();
    const double fadeSec = std::min(dueSec - pictures_.front().ptsSec(), longestFadeSec);
    const double share = 1 - (dueSec - atSec) / fadeSec;
    return share < leastShare ? picture
                              : pictures_[1].image().withOpacity(std::min(share, 1.0)).over(picture);
}

}   // namespace tavix
