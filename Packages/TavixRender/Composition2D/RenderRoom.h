// How much one painter of a film may keep from frame to frame. With less it decodes and draws more often, and
// what it draws is the same.
#pragma once

#include <cstddef>

namespace tavix {

struct RenderRoom {
    std::size_t decoderBytes = std::size_t{640} << 20;   // of open clips
    std::size_t pictureBytes = std::size_t{24} << 20;    // of decoded files of pictures
};

}   // namespace tavix
