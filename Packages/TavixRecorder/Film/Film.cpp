#include "TavixRecorder/Film/Film.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRecorder/Browser/Base64.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"

#include <condition_variable>
#include <cstring>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace tavix::recorder {

// Decodes, draws and encodes on a thread of its own.
class Film::Lab {
public:
    explicit Lab(const FilmSettings& settings) : settings_(settings), thread_([this] { work(); }) {}

    ~Lab() {
        {
            const std::scoped_lock lock(mutex_);
            isAbandoned_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }

    void take(Shot shot) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return shots_.size() < mostWaiting || fault_; });
        if (fault_) std::rethrow_exception(fault_);
        shots_.push_back(std::move(shot));
        changed_.notify_all();
    }

    void finish() {
        std::unique_lock lock(mutex_);
        isComplete_ = true;
        changed_.notify_all();
        changed_.wait(lock, [this] { return isFinished_ || fault_; });
        if (fault_) std::rethrow_exception(fault_);
    }

private:
    static constexpr std::size_t mostWaiting = 4;

    // The next shot; nothing at the end.
    std::optional<Shot> next() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !shots_.empty() || isComplete_ || isAbandoned_; });
        if (isAbandoned_ || shots_.empty()) return std::nullopt;
        Shot shot = std::move(shots_.front());
        shots_.pop_front();
        changed_.notify_all();
        return shot;
    }

    void work() {
        try {
            imaging::Evaluator evaluator;
            FrameSequenceEncoder encoder({.output = settings_.file,
                                             .size = settings_.sizePx,
                                             .fps = settings_.fps,
                                             .codec = VideoCodec::h264,
                                             .container = ExportContainer::mov,
                                             .effort = media::EncodingEffort::balanced},
                evaluator);
            for (std::int64_t frame = 0; auto shot = next(); ++frame) encoder.append(imageOf(*shot), frame);
            if (isAbandoned_) return;
            encoder.finish();
            const std::scoped_lock lock(mutex_);
            isFinished_ = true;
        } catch (...) {
            const std::scoped_lock lock(mutex_);
            fault_ = std::current_exception();
        }
        changed_.notify_all();
    }

    imaging::Image imageOf(const Shot& shot) {
        if (shot.picture != decodedFrom_) {
            page_ = std::make_shared<const imaging::Bitmap>(decoded(*shot.picture));
            decodedFrom_ = shot.picture;
        }
        imaging::BitmapRef shown = page_;
        if (!shot.overlay.isEmpty()) {
            imaging::Bitmap copy = copyOf(*page_);
            draw(shot.overlay, settings_.pixelsPerPoint, copy.view());
            copy.declareOpaque();
            shown = std::make_shared<const imaging::Bitmap>(std::move(copy));
        }
        // Of a picture that is larger the top left is shown.
        return imaging::Image::bitmap(shown, {0, double(settings_.sizePx.height - shown->size().height)});
    }

    static imaging::Bitmap copyOf(const imaging::Bitmap& page) {
        imaging::Bitmap copy = imaging::Bitmap::uninitialised(page.size());
        const auto rowBytes = static_cast<std::size_t>(page.size().width) * 4;
        for (int row = 0; row < page.size().height; ++row)
            std::memcpy(copy.view().row(row), page.view().row(row), rowBytes);
        return copy;
    }

    imaging::Bitmap decoded(const std::string& picture) const {
        imaging::Bitmap page;
        try {
            page = media::decodeStillImage(fromBase64(picture));
        } catch (const media::MediaError&) {
            throw Failure("The browser sent a picture that cannot be read.");
        }
        if (page.size().width < settings_.sizePx.width || page.size().height < settings_.sizePx.height)
            throw Failure("The browser sent a picture of " + std::to_string(page.size().width) + " × " +
                          std::to_string(page.size().height) + " pixels, which is smaller than the film.");
        page.declareOpaque();
        return page;
    }

    const FilmSettings settings_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Shot> shots_;
    std::exception_ptr fault_;
    bool isComplete_ = false, isFinished_ = false, isAbandoned_ = false;
    std::shared_ptr<const std::string> decodedFrom_;   // by the thread alone, and so is the page
    imaging::BitmapRef page_;
    std::thread thread_;
};

Film::Film(const FilmSettings& settings)
    : lagFrames_(settings.lagFrames), lab_(std::make_unique<Lab>(settings)) {}

Film::~Film() = default;

void Film::add(const std::string& picture, const Overlay& overlay) {
    if (!last_ || *last_ != picture) last_ = std::make_shared<const std::string>(picture);
    waiting_.push_back({last_, overlay});
    ++frameCount_;
    if (static_cast<std::int64_t>(waiting_.size()) > lagFrames_) send();
}

void Film::send() {
    Shot shot = std::move(waiting_.front());
    waiting_.pop_front();
    lab_->take(std::move(shot));
}

void Film::mark(std::int64_t frame) {
    const std::int64_t first = frameCount_ - static_cast<std::int64_t>(waiting_.size());
    if (frame >= first && frame < frameCount_)
        waiting_[static_cast<std::size_t>(frame - first)].overlay.isMarked = true;
}

void Film::finish() {
    while (!waiting_.empty()) send();
    lab_->finish();
}

}   // namespace tavix::recorder
