#include "TavixRender/Composition2D/SequentialClipReader.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace tavix {

namespace {

constexpr double sameTimeSec = 0.001;   // steps below this are none
constexpr double rapidStepSec =
    0.35;   // steps above this are answered from sync frames, when roughly is enough
constexpr double longestWalkSec = 2.0;   // a step above this is a jump: it starts from the nearest sync frame
constexpr int mostRoughDecodes = 30;     // for one rough request
constexpr double backOffSec = 0.25;      // where to open without a map of the samples
constexpr double lastSampleSec = 0.04;   // how long the last sample of a map is taken to last
constexpr double shortestRangeSec = 0.001;

}   // namespace

SequentialClipReader::SequentialClipReader(
    std::unique_ptr<media::VideoSource> source, Clip clip, RenderLog log, RenderLog scrubLog)
    : source_(std::move(source)), clip_(std::move(clip)), log_(std::move(log)),
      scrubLog_(std::move(scrubLog)) {}

SequentialClipReader::SequentialClipReader(const std::filesystem::path& path, const VideoClip& clip,
    bool holdLastFrame, const RenderLog& log, const RenderLog& scrubLog, media::VideoManner manner)
    : SequentialClipReader(std::make_unique<media::VideoFile>(path, std::move(manner)),
          {path.string(), clip.trimStartSec, clip.trimEndSec, holdLastFrame}, log, scrubLog) {}

bool SequentialClipReader::isBeforeEnd(double wanted) const {
    return wanted < clip_.trimEndSec.value_or(std::numeric_limits<double>::infinity());
}

std::optional<imaging::Image> SequentialClipReader::frame(double atClipSeconds, bool approximate) {
    if (hasFailed_) return std::nullopt;
    const double wanted = clip_.trimStartSec + std::max(atClipSeconds, 0.0);
    if (approximate && isBeforeEnd(wanted))
        if (auto image = rapidAnswer(wanted)) return image;
    if (std::exchange(needsRewind_, false)) rewind(wanted, Hold::keep);
    const bool hasRewound = jumpFor(wanted, approximate);
    lastWantedSec_ = wanted;
    do {
        if (!frames_ && !hasFinished_ && !open(approximate)) return std::nullopt;
        if (!isBeforeEnd(wanted)) return heldFrame();
        if (approximate) {
            decodeApproximately(wanted, hasRewound);
            break;
        }
        advance(wanted, std::numeric_limits<int>::max());
    } while (reopenedFurtherBack(wanted));
    return given();
}

// Past the trim's end. In the course of a film the last frame is at hand; a request out of order decodes it.
std::optional<imaging::Image> SequentialClipReader::heldFrame() {
    const double end = *clip_.trimEndSec;
    if (clip_.holdLastFrame && !current_ && !hasFinished_) {
        if (end - clip_.trimStartSec > longestWalkSec) {
            rewind(end - 2 * sameTimeSec, Hold::keep);
            if (!open(false)) return std::nullopt;
        }
        advance(end, std::numeric_limits<int>::max());
    }
    drain();
    return clip_.holdLastFrame ? given() : std::nullopt;
}

std::optional<imaging::Image> SequentialClipReader::given() {
    // Before the first sample the first sample is shown.
    if (!current_ && pending_) current_ = std::exchange(pending_, std::nullopt);
    if (!current_) return std::nullopt;
    return current_->image();
}

std::optional<imaging::Image> SequentialClipReader::rapidAnswer(double wanted) {
    const bool isBackward = lastWantedSec_ > wanted + sameTimeSec;
    if (!isBackward && !(wanted - lastWantedSec_ > rapidStepSec) && !needsRewind_) return std::nullopt;
    auto image = rapidFrame(wanted);
    if (!image) return std::nullopt;
    lastWantedSec_ = wanted;
    current_.emplace(rapidPtsSec_, *image);
    needsRewind_ = true;
    return image;
}

void SequentialClipReader::rest() {
    if (frames_) needsRewind_ = true;
    frames_.reset();
    pending_.reset();
    randomAccess_.reset();
}

// Starts anew where walking on from the last request would not get there, or not soon. The first request
// counts as a step from the trim's start.
bool SequentialClipReader::jumpFor(double wanted, bool approximate) {
    const bool isFirst = !frames_ && !hasFinished_ && !current_;
    const double last = isFirst ? std::max(lastWantedSec_, clip_.trimStartSec) : lastWantedSec_;
    const double limit = clip_.trimEndSec ? std::min(lastWantedSec_, *clip_.trimEndSec) : lastWantedSec_;
    if (limit > wanted + sameTimeSec) {
        rewind(wanted, approximate ? Hold::keep : Hold::drop);
        return true;
    }
    if ((frames_ || isFirst) && wanted - last > longestWalkSec && isBeforeEnd(wanted)) {
        rewind(wanted, Hold::keep);
        return true;
    }
    return false;
}

bool SequentialClipReader::open(bool approximate) {
    const double end = clip_.trimEndSec.value_or(std::numeric_limits<double>::infinity());
    const double start = std::max(std::min(openAtSec_.value_or(clip_.trimStartSec), end), clip_.trimStartSec);
    try {
        frames_ = source_->framesFrom(start, end, approximate ? media::Pace::onDemand : media::Pace::steady);
        return true;
    } catch (const media::MediaError& error) {
        hasFailed_ = true;
        tell(log_, Finding::warning(RenderCode::clipMissing,
                       "The clip " + clip_.name + " is not drawn: " + error.what(), clip_.name));
        return false;
    }
}

SequentialClipReader::Picture SequentialClipReader::nextFrame() {
    if (!frames_) return std::nullopt;
    Picture frame = frames_->next();
    if (frames_->isDamaged() && !std::exchange(isDamageTold_, true))
        tell(log_,
            Finding::warning(RenderCode::clipDamaged,
                "The clip " + clip_.name +
                    " is damaged or cut short; where a picture cannot be decoded, the one before it stays.",
                clip_.name));
    return frame;
}

void SequentialClipReader::drain() {
    frames_.reset();
    hasFinished_ = true;
}

// True when the time or the end was reached, false when the budget ran out first.
bool SequentialClipReader::advance(double to, int maxDecodes) {
    while (!hasFinished_ || pending_) {
        if (pending_) {
            if (to + media::timestampToleranceSec < pending_->ptsSec()) return true;
            current_ = std::exchange(pending_, std::nullopt);
            isCurrentOld_ = false;
            continue;
        }
        if (maxDecodes < 1) return false;
        pending_ = nextFrame();
        if (!pending_) {
            drain();
            return true;
        }
        if (to + media::timestampToleranceSec >= pending_->ptsSec()) --maxDecodes;
    }
    return true;
}

void SequentialClipReader::rewind(double near, Hold hold) {
    frames_.reset();
    // What was decoded past the old position would stand in the way of what lies before it.
    pending_.reset();
    if (hold == Hold::drop) current_.reset();
    isCurrentOld_ = true;
    hasFinished_ = false;
    if (hasSamples())
        openAtSec_ = std::max(clip_.trimStartSec, std::min((*sampleMap_)[syncIndexFor(near)].ptsSec, near));
    else
        openAtSec_ = std::max(clip_.trimStartSec, near - backOffSec);
}

// Without a map the place to open at was a guess. Where it turns out too late, or gave nothing, the next one
// lies four times as far back.
bool SequentialClipReader::reopenedFurtherBack(double wanted) {
    if (sampleMap_ && !sampleMap_->empty()) return false;
    if (!openAtSec_ || !(*openAtSec_ > clip_.trimStartSec + sameTimeSec)) return false;
    const double back = wanted - ((wanted - *openAtSec_) * 4 + 0.8);
    if ((!current_ || isCurrentOld_) && pending_ && pending_->ptsSec() > wanted + sameTimeSec) {
        rewind(back, Hold::drop);
        return true;
    }
    if (hasFinished_ && !pending_ && (!current_ || current_->ptsSec() < *openAtSec_)) {
        rewind(back, Hold::keep);
        return true;
    }
    return false;
}

void SequentialClipReader::decodeApproximately(double wanted, bool hasRewound) {
    if (hasRewound) {
        Picture first = nextFrame();
        if (first)
            current_ = std::move(first);
        else
            drain();
        return;
    }
    if (advance(wanted, mostRoughDecodes)) return;
    if (!scrubLog_) return;
    char line[96];
    std::snprintf(line, sizeof line, "scrub decode budget hit at wanted=%.2f last=%.2f", wanted,
        current_ ? current_->ptsSec() : -1.0);
    scrubLog_(Finding::progress(RenderCode::scrub, line));
}

bool SequentialClipReader::hasSamples() {
    if (!sampleMap_) buildSampleMap();
    return sampleMap_ && !sampleMap_->empty();
}

void SequentialClipReader::buildSampleMap() {
    const auto start = std::chrono::steady_clock::now();
    try {
        sampleMap_ = source_->samples();
    } catch (const media::MediaError&) {}   // the next rewind tries again
    if (!scrubLog_) return;
    const auto took =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    scrubLog_(Finding::progress(
        RenderCode::scrub, "sampleMap " + clip_.name + " built=" + std::to_string(took.count()) +
                               "ms samples=" + (sampleMap_ ? std::to_string(sampleMap_->size()) : "-1")));
}

// The sync sample that decoding of this time starts from; the first sample when none lies before it.
std::size_t SequentialClipReader::syncIndexFor(double sec) const {
    const auto& samples = *sampleMap_;
    const auto after = std::ranges::upper_bound(samples, sec + sameTimeSec, {}, &media::VideoSample::ptsSec);
    auto index = std::size_t(std::max<std::ptrdiff_t>(after - samples.begin() - 1, 0));
    while (index > 0 && !samples[index].isSync) --index;
    return index;
}

// A sync frame, which takes one decode and no walking.
std::optional<imaging::Image> SequentialClipReader::rapidFrame(double wanted) try {
    if (!hasSamples()) return std::nullopt;
    const auto& samples = *sampleMap_;
    const std::size_t index = syncIndexFor(std::min(wanted, samples.back().ptsSec));
    if (index == rapidIndex_ && rapidImage_) return rapidImage_;
    const double start = samples[index].ptsSec;
    const double next = index + 1 < samples.size() ? samples[index + 1].ptsSec : start + lastSampleSec;
    if (!randomAccess_ || randomAccess_->hasFailed()) randomAccess_ = source_->randomAccess();
    auto frame = randomAccess_->frame(start, std::max((next - start) * 0.5, shortestRangeSec));
    if (!frame) return std::nullopt;
    rapidIndex_ = index;
    rapidImage_ = frame->image();
    rapidPtsSec_ = start;
    return rapidImage_;
} catch (const media::MediaError&) {
    return std::nullopt;   // the walk takes over
}

}   // namespace tavix
