// What reading passes over in silence: parts of an author's document that change nothing, or not as written.
#pragma once

#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Type.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavix {

struct IgnoredPart {
    enum class Reason {
        unknownKey,    // no row of this object's table bears the key
        unknownWord,   // an enumeration or a union read the word as `taken`
        clamped,       // the number was moved to the nearer end of `limits`
        unreadable,    // the value of a tolerant key was dropped, for the reason in `message`
    };

    Reason reason = Reason::unknownKey;
    std::string path;                      // of the key or the value, as in "scenes[0].layers[2].fromsec"
    std::string found;                     // the unknown key or word
    std::vector<std::string_view> legal;   // the keys of this object, or the words, in the order of the table
    std::string_view nearest;              // of the legal ones; empty when none is near
    std::string_view taken;                // what an unknown word was read as
    double value = 0;                      // the number as written
    Bounds limits;                         // of the number
    std::string message;                   // of the reader, a finished sentence
};

// In the order of the tables, the keys of an object that are not known first. `document` is the raw JSON of a
// value of the type; what could not be read at all is passed over, for reading says it. The names live as
// long as the tables, which is to the end of the program. An unknown word that is kept (as that of an effect)
// is not ignored, and its object is not looked into.
std::vector<IgnoredPart> ignoredParts(const Json& document, const Type& type);

template <class T> std::vector<IgnoredPart> ignoredParts(const Json& document) {
    return ignoredParts(document, typeOf<T>());
}

}   // namespace tavix
