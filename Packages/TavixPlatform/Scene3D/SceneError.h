// What cannot be drawn, as a finished sentence: what, where, and what to do next.
#pragma once

#include <stdexcept>

namespace tavix::scene3d {

class SceneError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}   // namespace tavix::scene3d
