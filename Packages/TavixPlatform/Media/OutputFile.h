// A container file being written: tracks of packets, removed again unless it is finished.
#pragma once

#include "TavixPlatform/Media/Libav.h"

#include <filesystem>
#include <vector>

namespace tavix::media {

class OutputFile {
public:
    // Creates the file.
    OutputFile(const std::filesystem::path& path, const char* container);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // A track of the encoder's kind, or of another file's; its packets' times will be in the encoder's or in
    // that track's time base. `tag` 0 leaves the sample entry's code to the container.
    void addTrack(const AVCodecContext& encoder, unsigned tag);
    void addTrack(const AVStream& like, unsigned tag);
    void addTrack(const AVCodecParameters& like, AVRational timeBase, AVRational frameRate, unsigned tag);
    // Writes the head. All tracks have been added.
    void begin(libav::Options& options);
    void write(AVPacket& packet, int track = 0);
    void finish();

private:
    AVStream& newTrack(AVRational timeBase, AVRational frameRate);
    void open();
    void close() noexcept;
    int flush();
    void requireWhole() const;
    bool tellsDelays() const;
    std::string failure() const;

    std::filesystem::path path_;
    libav::FormatContext format_;
    std::vector<AVRational> timeBases_;   // of the packets handed in
    bool isFinished_ = false;
};

}   // namespace tavix::media
