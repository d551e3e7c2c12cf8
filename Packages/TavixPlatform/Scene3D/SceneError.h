// What cannot be drawn, as a finished sentence: what, where, and what to do next.
#pragma once

#include "TavixBase/Failure.h"

namespace tavix::scene3d {

class SceneError : public Failure {
public:
    using Failure::Failure;
};

}   // namespace tavix::scene3d
