// How the command ends, and the errors that say so. Every other exception means that reading or writing
// failed.
#pragma once

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixBase/Failure.h"

#include <exception>
#include <string>
#include <string_view>

namespace tavix::engine {

namespace ExitStatus {
inline constexpr int done = 0, documentHasErrors = 1, wrongUse = 2, inputOrOutputFailed = 3;
inline constexpr int stoppedBySignal = 128;   // and the signal's number on top, as shells have it
}   // namespace ExitStatus

// The document has errors, and all of them have been told.
class ErrorsTold : public Failure {
public:
    ErrorsTold() : Failure("The document has errors.") {}
};

// What an error says, with the errors that caused it, as one finished sentence or several.
std::string sentenceOf(const std::exception& error);

// A signal asked the command to end.
class Interrupted : public Failure {
public:
    explicit Interrupted(int signal) : Failure("Stopped; nothing was written."), signal_(signal) {}
    int signal() const { return signal_; }

private:
    int signal_;
};

}   // namespace tavix::engine
