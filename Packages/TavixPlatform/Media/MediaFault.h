// What the machine, and not the file, is to blame for while media are read: a disk that gives no bytes, or no
// more memory. The sentence names the file and the reason. It is no MediaError: where a film that cannot be
// read is left out, one that could not be read this time ends the work, or the result would be a wrong one.
#pragma once

#include "TavixBase/Failure.h"

namespace tavix::media {

class MediaFault : public Failure {
public:
    using Failure::Failure;
};

}   // namespace tavix::media
