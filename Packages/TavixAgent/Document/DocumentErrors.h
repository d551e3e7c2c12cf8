// Why a document, or what is asked of it, cannot be used.
#pragma once

#include "TavixBase/Failure.h"

#include <string>
#include <string_view>
#include <utility>

namespace tavix {

// What is asked for cannot be meant.
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

}   // namespace tavix
