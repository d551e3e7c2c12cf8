#include "Engine/Verbs/EditVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/StandardInput.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Judge/Findings.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixAgent/Edit/DocumentEdit.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"

namespace tavix::engine {

namespace {

constexpr std::size_t mostPatchBytes = 16u << 20;

// A patch in the argument itself, in a file, or on standard input.
std::string patchText(const std::string& given) {
    if (given == "-") return readStandardInput(mostPatchBytes);
    const std::size_t begin = given.find_first_not_of(" \t\r\n");
    if (begin != std::string::npos && (given[begin] == '[' || given[begin] == '{')) return given;
    return readBytes(given, mostPatchBytes);
}

// A value as JSON; what is no JSON is meant as a text.
Json valueOf(const std::string& given) {
    try {
        return parseJson(given);
    } catch (const Failure&) {
        return given;
    }
}

}   // namespace

void EditVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("document", document_, "A .tavixcomp bundle or a composition.json.",
        "edit needs a document: a .tavixcomp bundle or a composition.json.");
    arguments.text("--patch", patch_, "PATCH",
        "A JSON Patch (RFC 6902): a file, the patch itself, or - for standard input.");
    arguments.text("--pointer", pointer_, "POINTER", "In place of a patch: where to set one value.");
    arguments.text("--value", value_, "JSON", "That value; without one the place is removed.");
    arguments.text("--if-revision", ifRevision_, "REVISION",
        "Change nothing unless the document still has this revision; read prints it.");
    arguments.jsonFlag(terminal);
}

JsonPatch EditVerb::wantedPatch() const {
    if (patch_.has_value() == pointer_.has_value())
        throw UsageError("Say what to change: either --patch PATCH, or --pointer POINTER with --value JSON.");
    if (patch_) return readPatch(parseJson(patchText(*patch_)));
    PatchOperation operation;
    operation.path = JsonPointer::parse(*pointer_);
    operation.kind = value_ ? PatchOperation::Kind::add : PatchOperation::Kind::remove;
    if (!value_) return {operation};
    operation.value = valueOf(*value_);
    // Adding to a list would insert; what is meant is the element.
    const Json written = readWritten(document_).json;
    if (!operation.path.isRoot() && find(written, operation.path))
        operation.kind = PatchOperation::Kind::replace;
    return {operation};
}

void EditVerb::run(Terminal& terminal) {
    const EditResult result = [&] {
        try {
            return editDocument({document_, wantedPatch(), ifRevision_});
        } catch (const PatchError& error) {
            throw UsageError(error.message() + " Nothing is changed; read the document, and mend the patch.");
        }
    }();
    if (terminal.mode() == Terminal::Mode::json) {
        const Json written = readWritten(document_).json;
        return terminal.result(JsonObject{{"revision", result.revision}, {"before", result.before},
            {"came", findingsAsJson(result.came, written)}, {"went", findingsAsJson(result.went, written)},
            {"difference", result.difference}});
    }
    std::string text = "revision " + result.revision + "\n" + result.difference;
    if (!result.came.empty()) text += "came:\n" + linesOf(result.came);
    if (!result.went.empty()) text += "went:\n" + linesOf(result.went);
    terminal.result(text);
}

}   // namespace tavix::engine
