// Writes a movie file from planar frames. Encoding runs on a thread of its own, which reads the planes of a
// few fixed slots; whoever fills them waits when all are taken, so memory does not depend on the movie's
// length.
//
//     MovieWriter writer(settings);
//     for (...) {
//         MovieWriter::Slot& slot = writer.acquire();
//         ... write slot.planes, or only what differs from the frame that slot.stamp remembers ...
//         writer.submit(slot, presentationTime);
//     }
//     writer.finish();
//
// The same frames and settings give the same bytes, whatever the machine, the number of its cores or the
// hour; but not of a hardware encoder.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/HardwareEncoder.h"
#include "TavixPlatform/Media/MediaError.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace tavix::media {

enum class MovieCodec { h264, hevc, proRes422HQ, proRes4444, vp9, av1, vp9Alpha };
// A piece is no film that anybody plays: see MovieJoin.h.
enum class MovieContainer { mp4, mov, webm, piece };
enum class EncodingEffort { fast, balanced, best };   // at the same bit rate: quicker, or better pictures

struct MovieSettings {
    std::filesystem::path path;   // replaced when it exists; its folder must exist
    imaging::Size sizePx;         // even in both directions, but an even width only for ProRes
    MovieCodec codec = MovieCodec::h264;
    MovieContainer container = MovieContainer::mp4;   // ProRes is always written as QuickTime
    std::int64_t bitsPerSec = 0;                      // average; 0 leaves it to the codec, ProRes knows none
    bool mayTakeLess = false;                         // than the rate, where nobody would see what it adds
    std::optional<int> quality = {};                  // 0 to 100 instead of a rate; of no meaning to ProRes
    // Instead of both, on the codec's own scale: 0 to 51 for H.264 and HEVC in any steps, 0 to 63 for VP9 and
    // AV1 in whole ones. Six steps of the former, and about nine of the latter, take half of the bits.
    std::optional<double> coarseness = {};
    EncodingEffort effort = EncodingEffort::fast;
    std::optional<HardwareEncoder> hardware = {};   // of that codec, in place of the usual encoder
    int timescale = 600;                            // units per second of presentation times
    int frameDuration = 20;   // of a frame, in these units: 600 / 20 are 30 frames a second
};

// The planes that a codec reads, always ITU-R BT.709 in limited range. ProRes 4444 and VP9 with alpha have
// straight alpha.
imaging::PlanarFormat planarFormatOf(MovieCodec codec);
bool needsEvenHeight(MovieCodec codec);   // all need an even width

// Used by one thread at a time. Every member may throw MediaError; a fault of the encoder thread is thrown by
// the next call of acquire, submit or finish.
class MovieWriter {
public:
    // Planes are never written by the writer, so a slot that comes back still holds the frame it was
    // submitted with. The stamp is the caller's alone; it starts at 0, with planes of zeros.
    struct Slot {
        imaging::PlanarView planes;
        std::uint64_t stamp = 0;
    };
    static constexpr int slotCount = 3;   // one being filled, one waiting, one being read

    explicit MovieWriter(const MovieSettings& settings);   // creates the file
    ~MovieWriter();                                        // without `finish` the file is removed
    MovieWriter(const MovieWriter&) = delete;
    MovieWriter& operator=(const MovieWriter&) = delete;

    // Waits for a free slot, the longest free one first. It belongs to the caller until `submit`; one that is
    // never submitted simply stays with the caller.
    Slot& acquire();
    // Presentation times are in units of the timescale and rise from frame to frame.
    void submit(Slot& slot, std::int64_t presentationTime);
    // Encodes what is left, completes the file and closes it. At least one frame must have been submitted.
    void finish();

private:
    class Session;
    std::unique_ptr<Session> session_;
};

}   // namespace tavix::media
