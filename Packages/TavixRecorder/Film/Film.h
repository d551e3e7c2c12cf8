// The pictures of a page, one after another, with what is drawn over them, into a film.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRecorder/Film/Overlay.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <string>

namespace tavix::recorder {

struct FilmSettings {
    std::filesystem::path file;   // QuickTime, H.264
    imaging::Size sizePx;
    double pixelsPerPoint = 1;
    int fps = 60;
    std::int64_t lagFrames = 0;   // so long a frame can still be marked
};

// Decoding and encoding run on threads of their own, and a slow one is waited for. Used by one thread. Every
// member throws `Failure`, also of what went wrong meanwhile.
class Film {
public:
    explicit Film(const FilmSettings& settings);
    ~Film();

    // A PNG in base 64, at least as large as the film.
    void add(const std::string& picture, const Overlay& overlay);
    // Puts the mark into the corner of a frame that was added, no more than the lag ago.
    void mark(std::int64_t frame);
    // Completes the file. At least one frame was added.
    void finish();

    std::int64_t frameCount() const { return frameCount_; }

private:
    struct Shot {
        std::shared_ptr<const std::string> picture;   // shared while it stays the same
        Overlay overlay;
    };
    class Lab;
    void send();

    std::int64_t lagFrames_, frameCount_ = 0;
    std::deque<Shot> waiting_;
    std::shared_ptr<const std::string> last_;
    std::unique_ptr<Lab> lab_;
};

}   // namespace tavix::recorder
