// Which program this is: of two with the same identity, each makes the same pictures of the same document.
#pragma once

#include "TavixBase/Digest.h"

namespace tavix {

// Of the program and every library that is loaded into it, of the pictures and models that come with it, of
// the fonts of this machine, and of the instructions of its processor. Anything that is built or installed
// anew is another one. Found once, when it is first asked for. Safe on every thread.
Digest programIdentity();

}   // namespace tavix
