// What went wrong while reading or writing media, as a finished sentence that names the file and the reason.
#pragma once

#include <stdexcept>

namespace tavix::media {

class MediaError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}   // namespace tavix::media
