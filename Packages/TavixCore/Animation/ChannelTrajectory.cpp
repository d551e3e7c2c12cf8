#include "TavixCore/Animation/ChannelTrajectory.h"

#include "TavixCore/Animation/SplineMath.h"
#include "TavixCore/Values/Clamp01.h"

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

void sortByTime(std::vector<ChannelKeyframe>& track) {
    std::stable_sort(track.begin(), track.end(),
        [](const ChannelKeyframe& a, const ChannelKeyframe& b) { return a.tSec < b.tSec; });
}

// Walks forward over a sorted track.
class TrackCursor {
public:
    explicit TrackCursor(const std::vector<ChannelKeyframe>& track) : track_(track) {}

    // Where a device heads at this time: to the keyframe it has reached, or already to the next one when that
    // follows closely.
    const Channels& targetAt(double tSec) {
        constexpr double closeSec = 0.7;
        while (hasNext() && track_[index_ + 1].tSec <= tSec) ++index_;
        const bool leaves = hasNext() && track_[index_ + 1].tSec - track_[index_].tSec <= closeSec;
        return track_[leaves ? index_ + 1 : index_].values;
    }

    // The start of the segment that holds this time; the last segment also what lies after it.
    std::size_t segmentAt(double tSec) {
        while (index_ + 2 < track_.size() && track_[index_ + 1].tSec <= tSec) ++index_;
        return index_;
    }

private:
    bool hasNext() const { return index_ + 1 < track_.size(); }

    const std::vector<ChannelKeyframe>& track_;
    std::size_t index_ = 0;
};

std::vector<double> channelTangents(const std::vector<ChannelKeyframe>& track, std::size_t channel) {
    std::vector<double> timesSec, values;
    for (const ChannelKeyframe& keyframe : track) {
        timesSec.push_back(keyframe.tSec);
        values.push_back(keyframe.values[channel]);
    }
    return SplineMath::tangents(timesSec, values);
}

}   // namespace

std::size_t trajectoryFrames(double endSec, double framesPerSec) {
    const double frames = std::round(endSec * framesPerSec) + 1;
    return static_cast<std::size_t>(std::fmin(std::fmax(frames, 1), double(longestTrajectoryFrames)));
}

std::vector<Channels> springTrajectory(
    std::vector<ChannelKeyframe> track, double framesPerSec, const TrajectorySpring& spring) {
    if (track.empty()) return {};
    const ChannelKeyframe first = track.front();
    if (!(framesPerSec > 0)) return {first.values};
    sortByTime(track);

    const double stepSec = 1 / framesPerSec;
    const double endSec = std::max(stepSec + first.tSec, settlingSec(spring) + track.back().tSec);
    const SpringStep step(spring, stepSec);
    TrackCursor cursor(track);
    Channels position = first.values, velocityPerSec{};
    std::vector<Channels> frames(trajectoryFrames(endSec, framesPerSec));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        frames[i] = position;
        const Channels& target = cursor.targetAt(static_cast<double>(i) * stepSec);
        for (std::size_t axis = 0; axis < target.size(); ++axis)
            step.advance(position[axis], velocityPerSec[axis], target[axis]);
    }
    return frames;
}

std::vector<Channels> splineTrajectory(
    std::vector<ChannelKeyframe> track, double framesPerSec, double tailSec) {
    if (track.empty()) return {};
    if (track.size() < 2 || !(framesPerSec > 0)) return {track.front().values};
    sortByTime(track);

    constexpr double shortestSec = 1e-6;
    std::array<std::vector<double>, std::tuple_size_v<Channels>> tangents;
    for (std::size_t channel = 0; channel < tangents.size(); ++channel)
        tangents[channel] = channelTangents(track, channel);
    TrackCursor cursor(track);
    std::vector<Channels> frames(trajectoryFrames(track.back().tSec + tailSec, framesPerSec));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double tSec = static_cast<double>(i) / framesPerSec;
        const std::size_t from = cursor.segmentAt(tSec), to = from + 1;
        const double lengthSec = track[to].tSec - track[from].tSec;
        const double u = KineticMath::clamp01((tSec - track[from].tSec) / std::max(lengthSec, shortestSec));
        for (std::size_t channel = 0; channel < tangents.size(); ++channel)
            frames[i][channel] =
                SplineMath::hermite({track[from].values[channel], track[to].values[channel],
                                        tangents[channel][from], tangents[channel][to], lengthSec},
                    u);
    }
    return frames;
}

std::size_t nearestFrame(double atSec, double framesPerSec, std::size_t count) {
    const double index = std::round(atSec * framesPerSec);
    return static_cast<std::size_t>(std::fmin(std::fmax(index, 0), static_cast<double>(count - 1)));
}

}   // namespace tavix
