// A piece of a film in a file of our own: what the encoder says of its track, and its packets as they came
// out of it, with their times counted from the piece's first frame. Several pieces are copied into one film
// one after another. The digest of all of it stands at the end, so that damage is found. Inside the library
// only.
#pragma once

#include "TavixBase/ContentHash.h"
#include "TavixPlatform/Media/PacketSink.h"
#include "TavixPlatform/Media/PlainFile.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::media {

struct CodecParametersDeleter {
    void operator()(AVCodecParameters* p) const { avcodec_parameters_free(&p); }
};
using CodecParameters = std::unique_ptr<AVCodecParameters, CodecParametersDeleter>;

// The fields of a piece, in the byte order of the machine: pieces are not carried to machines of another.
class PieceWriter final : public PacketSink {
public:
    // Creates the file. Throws MediaError.
    PieceWriter(const std::filesystem::path& path, const AVCodecContext& encoder, unsigned tag);
    ~PieceWriter() override;   // without `finish` the file is removed
    void take(AVPacket& packet) override;
    void finish() override;

private:
    void put(const void* bytes, std::size_t size);
    template <class Number> void put(Number number) { put(&number, sizeof number); }
    [[noreturn]] void fail() const;

    std::filesystem::path path_;
    std::ofstream file_;
    ContentHash hash_;
    std::int64_t packets_ = 0;
    bool isFinished_ = false;
};

class PieceReader {
public:
    // Throws MediaError when it is no piece, or a damaged one.
    explicit PieceReader(const std::filesystem::path& path);

    const AVCodecParameters& parameters() const { return *parameters_; }
    AVRational timeBase() const { return timeBase_; }
    AVRational frameRate() const { return frameRate_; }
    std::int64_t packetCount() const { return packetCount_; }
    // All that is the same in pieces of one film.
    std::string_view head() const { return head_; }
    // False after the last one.
    bool read(AVPacket& packet);

private:
    void requireWhole();
    void get(void* to, std::size_t size);
    template <class Number> Number get() {
        Number number{};
        get(&number, sizeof number);
        return number;
    }

    std::string failure_;
    PlainFile file_;
    std::int64_t at_ = 0;   // in the file
    CodecParameters parameters_;
    AVRational timeBase_{}, frameRate_{};
    std::string head_;
    std::int64_t packetCount_ = 0, packetsRead_ = 0;
};

}   // namespace tavix::media
