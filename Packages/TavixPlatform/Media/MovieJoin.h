// One film of pieces that were encoded one by one: packets are copied and nothing is decoded. A piece is what
// `MovieWriter` writes with `MovieContainer::piece`; it begins with a picture that stands alone.
#pragma once

#include "TavixPlatform/Media/MediaError.h"
#include "TavixPlatform/Media/MovieWriter.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace tavix::media {

// How many frames a piece has. Reads all of it. Throws MediaError with the reason when it is no piece, or a
// damaged one.
std::int64_t pieceFrameCount(const std::filesystem::path& piece);
// What its pictures take. Throws as before.
std::int64_t pieceByteCount(const std::filesystem::path& piece);

struct JoinSettings {
    std::vector<std::filesystem::path> pieces;    // in their order; of equal settings
    std::optional<std::filesystem::path> sound;   // its first audio track, up to the end of the pictures
    std::filesystem::path output;                 // replaced when it exists; its folder must exist
    MovieContainer container = MovieContainer::mp4;
    int frameDuration = 20;   // as in the settings of the pieces
};

// `checkpoint` is called now and then and may throw to end the work. Throws MediaError when a piece is
// damaged or does not go with the first one, or something cannot be read or written. Unless it comes to its
// end the output is removed.
void joinPieces(const JoinSettings& settings, const std::function<void()>& checkpoint = {});

}   // namespace tavix::media
