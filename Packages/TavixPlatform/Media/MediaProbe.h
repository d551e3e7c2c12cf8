// What a media file holds, without decoding it.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/MediaError.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix::media {

struct VideoTrackInfo {
    std::string codec;                        // as FFmpeg names it, like all words here
    imaging::Size codedSize;                  // as stored
    imaging::Size shownSize;                  // upright and with square pixels
    double framesPerSec = 0;                  // on average; 0 when the file does not tell
    std::string pixelFormat, matrix, range;   // empty when the file does not tell
};
struct AudioTrackInfo {
    std::string codec;
    int sampleRateHz = 0, channelCount = 0;
};
struct MediaInfo {
    std::string container;
    double durationSec = 0;
    std::vector<VideoTrackInfo> video;
    std::vector<AudioTrackInfo> audio;
};

// All throw MediaError when the file is none that can be read. Of ordinary films the last two read the head
// alone, which takes no time.
MediaInfo probeMedia(const std::filesystem::path& path);
// Of the first track of pictures, upright and with square pixels; nothing when there is none.
std::optional<imaging::Size> mediaShownSize(const std::filesystem::path& path);
// Of the longest track; 0 when there is nothing to tell it by.
double mediaDurationSec(const std::filesystem::path& path);

}   // namespace tavix::media
