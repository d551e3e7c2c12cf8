#include "Engine/Documents/DocumentFile.h"

#include "Engine/Documents/AssetFiles.h"
#include "Engine/System/Errors.h"
#include "Engine/System/SystemWatch.h"
#include "TavixReel/Project/ReelProjectBundle.h"

#include <cstdlib>

namespace tavix::engine {

namespace {

// Whoever runs the command for others names the folder that it may read.
void requireWithinRoot(const DocumentFile& document) {
    const char* root = std::getenv("TAVIX_ROOT");
    if (!root || !*root) return;
    if (!isWithin(document.file, root))
        throw UsageError(
            "\"" + document.shownPath + "\" lies outside \"" + root + "\", which is all that is read here.");
    for (const AssetFile& asset : assetFilesOf(document)) {
        std::error_code ignored;
        const bool isName = asset.written.find('/') == std::string::npos &&
                            !std::filesystem::exists(asset.path, ignored);   // of a font or a sound
        if (!isName && !isWithin(asset.path, root))
            throw DocumentError(document.shownPath, {},
                "\"" + asset.written + "\" lies outside \"" + root +
                    "\", which is all that is read here; bring the file into it.");
    }
}

}   // namespace

DocumentFile openDocument(const std::string& given) {
    const SystemWatch::Task task("to read the document");
    if (ReelProjectBundle::isBundle(given))
        throw UsageError(
            "\"" + given + "\" is a reel; tavix reel render, reel still and reel sheet take it.");
    DocumentFile document = readDocument(given);
    requireWithinRoot(document);
    return document;
}

}   // namespace tavix::engine
