// How the command ends, and the errors that say so. Every other exception means that reading or writing
// failed.
#pragma once

#include "TavixBase/Failure.h"

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace tavix::engine {

namespace ExitStatus {
inline constexpr int done = 0, documentHasErrors = 1, wrongUse = 2, inputOrOutputFailed = 3;
inline constexpr int stoppedBySignal = 128;   // and the signal's number on top, as shells have it
}   // namespace ExitStatus

// The arguments cannot be meant.
class UsageError : public Failure {
public:
    using Failure::Failure;
};

// The document was read, but cannot be used as it stands.
class DocumentError : public Failure {
public:
    // The code is that of the rule of lint that tells it.
    DocumentError(
        std::string file, std::string path, const std::string& message, std::string_view code = "unreadable")
        : Failure(message), file_(std::move(file)), path_(std::move(path)), code_(code) {}

    const std::string& file() const { return file_; }
    const std::string& path() const { return path_; }   // within the document; empty for the whole
    std::string_view code() const { return code_; }

private:
    std::string file_, path_;
    std::string_view code_;   // of a table or a literal
};

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
