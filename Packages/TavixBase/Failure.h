// What was asked cannot be done. The message is a finished sentence, or several, shown to the user unchanged
// and never parsed: what, where, what to do.
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
