// What went wrong while reading or writing media, as a finished sentence that names the file and the reason.
#pragma once

#include "TavixBase/Failure.h"

namespace tavix::media {

class MediaError : public Failure {
public:
    using Failure::Failure;
};

}   // namespace tavix::media
