#include "TavixPlatform/Media/MovieJoin.h"

#include "TavixPlatform/Media/MovieEncoder.h"
#include "TavixPlatform/Media/OutputFile.h"
#include "TavixPlatform/Media/PacketSource.h"
#include "TavixPlatform/Media/PieceFile.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <memory>
#include <string>

namespace tavix::media {
namespace {

constexpr int packetsBetweenCheckpoints = 256;

// The packets of all pieces with their times in the film.
class Pieces {
public:
    explicit Pieces(const JoinSettings& settings)
        : settings_(settings), packet_(libav::owned<libav::Packet>(av_packet_alloc())) {
        if (settings.pieces.empty()) throw MediaError("A film needs at least one piece.");
        open();
        head_ = piece_->head();
        parameters_.reset(avcodec_parameters_alloc());
        if (!parameters_ || avcodec_parameters_copy(parameters_.get(), &piece_->parameters()) < 0)
            throw std::bad_alloc();
        timeBase_ = piece_->timeBase();
        frameRate_ = piece_->frameRate();
        advance();
    }

    const AVCodecParameters& parameters() const { return *parameters_; }
    AVRational timeBase() const { return timeBase_; }
    AVRational frameRate() const { return frameRate_; }
    AVPacket* packet() const { return isLive_ ? packet_.get() : nullptr; }

    void advance() {
        while (!(isLive_ = piece_->read(*packet_))) {
            if (next_ == settings_.pieces.size()) return;
            start_ += length();
            open();
        }
        packet_->pts += start_;
        packet_->dts += start_;
    }

private:
    void open() {
        const std::filesystem::path& path = settings_.pieces[next_++];
        piece_ = std::make_unique<PieceReader>(path);
        if (!head_.empty() && piece_->head() != head_)
            throw MediaError("The piece \"" + path.string() +
                             "\" does not go with the first one: it was encoded with other settings.");
    }
    std::int64_t length() const { return piece_->packetCount() * settings_.frameDuration; }

    const JoinSettings& settings_;
    std::size_t next_ = 0;
    std::unique_ptr<PieceReader> piece_;
    std::int64_t start_ = 0;   // of the piece
    libav::Packet packet_;
    bool isLive_ = false;
    std::string head_;
    CodecParameters parameters_;
    AVRational timeBase_{}, frameRate_{};
};

std::int64_t lengthOf(const JoinSettings& settings) {
    std::int64_t frames = 0;
    for (const std::filesystem::path& piece : settings.pieces) frames += pieceFrameCount(piece);
    return frames * settings.frameDuration;
}

}   // namespace

std::int64_t pieceFrameCount(const std::filesystem::path& piece) { return PieceReader(piece).packetCount(); }

std::int64_t pieceByteCount(const std::filesystem::path& piece) {
    PieceReader reader(piece);
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    std::int64_t bytes = 0;
    while (reader.read(*packet)) bytes += packet->size;
    return bytes;
}

void joinPieces(const JoinSettings& settings, const std::function<void()>& checkpoint) {
    Pieces pieces(settings);
    std::unique_ptr<PacketSource> sound;
    if (settings.sound) sound = std::make_unique<PacketSource>(*settings.sound, AVMEDIA_TYPE_AUDIO);
    const bool hasSound = sound && sound->track();
    const AVRational soundBase = hasSound ? sound->track()->time_base : AVRational{1, 1};
    OutputFile file(settings.output, nameOf(settings.container));
    file.addTrack(pieces.parameters(), pieces.timeBase(), pieces.frameRate(), pieces.parameters().codec_tag);
    if (hasSound) {
        file.addTrack(*sound->track(), 0);
        sound->endAt(av_rescale_q(lengthOf(settings), pieces.timeBase(), soundBase));
    }
    libav::Options options = movieOptions(settings.container, pieces.timeBase().den);
    file.begin(options);
    for (int count = 0; pieces.packet() || (hasSound && sound->packet()); ++count) {
        if (checkpoint && count % packetsBetweenCheckpoints == 0) checkpoint();
        const NextPacket nextSound{hasSound ? sound->packet() : nullptr, soundBase};
        if (isBefore({pieces.packet(), pieces.timeBase()}, nextSound)) {
            file.write(*pieces.packet(), 0);
            pieces.advance();
        } else {
            file.write(*sound->packet(), 1);
            sound->advance();
        }
    }
    file.finish();
}

}   // namespace tavix::media
