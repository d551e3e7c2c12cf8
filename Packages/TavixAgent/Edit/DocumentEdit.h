// Changes a document on the disk, whole or not at all, and leaves every byte that the change does not touch.
#pragma once

#include "TavixAgent/Document/DocumentFile.h"
#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Paths/JsonPatch.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

// The file that holds a document: of a bundle the one in it. Throws `Failure` when there is none.
std::filesystem::path documentFileOf(const std::string& given);

// A document as it is written, and what is found in it without drawing: its rules, and what reading passes
// over.
struct WrittenDocument {
    std::filesystem::path file;
    std::string text, revision;
    Json json;
    std::vector<Finding> findings;
};
// Throws `DocumentError` for a document that cannot be read, or `Failure` when there is nothing to read.
WrittenDocument readWritten(const std::string& given);
// The same of a text that stands in the place of the document's own.
WrittenDocument writtenAs(const WrittenDocument& document, const std::string& given, std::string text);

struct EditRequest {
    std::string document;   // as it was given
    JsonPatch patch;
    std::optional<std::string> ifRevision;   // nothing is changed when the document has another
};

struct EditResult {
    std::string before, revision;   // the same where nothing changed
    std::vector<Finding> came, went;
    std::string difference;   // the lines that changed, for reading
};

// Throws `RevisionError`, `PatchError`, and `DocumentError` for a change after which the document could not
// be read. The new file is written beside the old one and takes its name.
EditResult editDocument(const EditRequest& request);

}   // namespace tavix
