// A document that cannot be read: what is wrong with it and at which key.
#pragma once

#include "TavixBase/Failure.h"

#include <string>
#include <utility>

namespace tavix {

class DecodingError : public Failure {
public:
    enum class Kind {
        keyNotFound,     // a required key is missing
        valueNotFound,   // a required key holds null
        typeMismatch,    // a value of the wrong JSON type
        dataCorrupted,   // no JSON at all, or a value that means nothing here
    };

    DecodingError(Kind kind, std::string path, const std::string& message)
        : Failure(message), kind_(kind), path_(std::move(path)) {}

    Kind kind() const { return kind_; }
    // Where it is, as in "scenes[0].layers[2].tracks[0].property"; empty for the document itself.
    const std::string& path() const { return path_; }

private:
    Kind kind_;
    std::string path_;
};

}   // namespace tavix
