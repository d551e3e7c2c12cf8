// How two documents differ, in words and in the times of the film that it touches.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/JsonPatch.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct DocumentChange {
    std::string path;                // JSON Pointer, in the second document; of what went, in the first
    std::string what;                // "added", "removed", "changed", "moved"
    std::string name;                // whose it is: a layer, a scene, the music
    std::string words;               // the change in a sentence
    double fromSec = 0, toSec = 0;   // that it touches, on the clock of the second film
    bool operator==(const DocumentChange&) const = default;
};
const Fields<DocumentChange>& fieldsOf(std::type_identity<DocumentChange>);

// Of documents that can be read, with their times in seconds for the times of the changes.
struct DiffSide {
    Json written;
    CompositionSpec spec;
};
std::vector<DocumentChange> changesBetween(const DiffSide& before, const DiffSide& after);

// A moment for each stretch that changes touch, at most so many, on the clock of the second film.
std::vector<double> momentsOf(const std::vector<DocumentChange>& changes, std::size_t most);

// A line for each, a page at most.
std::string textOf(const std::vector<DocumentChange>& changes);

}   // namespace tavix
