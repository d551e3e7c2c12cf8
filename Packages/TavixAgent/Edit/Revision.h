// A name for the bytes of a document, by which one tells whether it has changed.
#pragma once

#include "TavixBase/Failure.h"

#include <string>
#include <string_view>
#include <utility>

namespace tavix {

// 32 hexadecimal digits: XXH3 of 128 bits over the bytes of the file.
std::string revisionOf(std::string_view bytes);

// Somebody else has changed the document meanwhile.
class RevisionError : public Failure {
public:
    RevisionError(const std::string& file, const std::string& expected, std::string actual)
        : Failure("\"" + file + "\" has changed: its revision is " + actual + ", not " + expected +
                  ". Read it again, and make the change for what it is now."),
          actual_(std::move(actual)) {}

    const std::string& actual() const { return actual_; }

private:
    std::string actual_;
};

}   // namespace tavix
