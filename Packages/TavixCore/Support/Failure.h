// The error of the core library: what was asked cannot be done. Its message is a finished sentence that is
// shown to the user unchanged and never parsed.
#pragma once

#include <stdexcept>
#include <string>

namespace tavix {

class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    std::string message() const { return what(); }
};

}   // namespace tavix
