#include "TavixAgent/Edit/DocumentEdit.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixAgent/Edit/LineDifference.h"
#include "TavixAgent/Edit/Revision.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Judge/IgnoredBesideMotion.h"
#include "TavixCore/Judge/PassedOver.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Project/BundleLock.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Document.h"

#include <algorithm>
#include <iterator>

namespace tavix {
namespace {

namespace fs = std::filesystem;

WrittenDocument judged(const std::string& given, const fs::path& file, std::string text) {
    try {
        WrittenDocument document{file, std::move(text), {}, {}, {}};
        document.revision = revisionOf(document.text);
        document.json = parseJson(document.text);
        auto arrival = CompositionRoad::judge(
            decodeValue<CompositionSpec>(document.json), fs::absolute(file).parent_path());
        document.findings = arrival.findings();
        std::ranges::move(CompositionLint::passedOver(document.json), std::back_inserter(document.findings));
        std::ranges::move(
            CompositionLint::ignoredBesideMotion(document.json), std::back_inserter(document.findings));
        return document;
    } catch (const DecodingError& error) {
        throw DocumentError(given, error.path(), error.message());
    }
}

// Those of the first that the second does not have.
std::vector<Finding> lacking(std::vector<Finding> all, std::vector<Finding> others) {
    std::erase_if(all, [&](const Finding& finding) {
        const auto same = std::ranges::find(others, finding);
        if (same == others.end()) return false;
        others.erase(same);
        return true;
    });
    return all;
}

}   // namespace

fs::path documentFileOf(const std::string& given) {
    std::error_code unreadable;
    return fs::is_directory(given, unreadable) ? CompositionProjectBundle::specFile(given) : fs::path(given);
}

WrittenDocument readWritten(const std::string& given) {
    const fs::path file = documentFileOf(given);
    return judged(given, file, readBytes(file, JsonLimits{}.maxBytes));
}

WrittenDocument writtenAs(const WrittenDocument& document, const std::string& given, std::string text) {
    return judged(given, document.file, std::move(text));
}

EditResult editDocument(const EditRequest& request) {
    const fs::path folder = fs::absolute(documentFileOf(request.document)).parent_path();
    const BundleLock lock(folder);
    if (!lock.isHeld())
        throw Failure("\"" + request.document + "\" is being written by another program; try again.");
    const WrittenDocument before = readWritten(request.document);
    if (request.ifRevision && *request.ifRevision != before.revision)
        throw RevisionError(request.document, *request.ifRevision, before.revision);
    const WrittenDocument after =
        writtenAs(before, request.document, patchedText(before.text, request.patch));
    if (after.text != before.text) writeBytesAtomically(after.text, before.file);
    return {before.revision, after.revision, lacking(after.findings, before.findings),
        lacking(before.findings, after.findings), lineDifference(before.text, after.text)};
}

}   // namespace tavix
