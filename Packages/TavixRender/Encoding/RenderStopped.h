// The end of a render that was asked for before it was done.
#pragma once

#include "TavixBase/Failure.h"

namespace tavix {

class RenderStopped : public Failure {
public:
    RenderStopped() : Failure("The render was stopped before it was finished.") {}
};

}   // namespace tavix
