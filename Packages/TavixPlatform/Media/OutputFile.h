// A container file being written: one stream of packets, removed again unless it is finished.
#pragma once

#include "TavixPlatform/Media/Libav.h"

#include <filesystem>

namespace tavix::media {

class OutputFile {
public:
    // Opens the file and writes its head for one stream of the encoder's kind. `tag` 0 leaves the sample
    // entry's code to the container.
    OutputFile(const std::filesystem::path& path, const char* container, const AVCodecContext& encoder,
        unsigned tag, libav::Options& options);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // Times of the packet are in the encoder's time base.
    void write(AVPacket& packet);
    void finish();

private:
    void open();
    void close() noexcept;
    int flush();
    std::string failure() const;

    std::filesystem::path path_;
    libav::FormatContext format_;
    AVRational encoderTimeBase_;
    bool isFinished_ = false;
};

}   // namespace tavix::media
