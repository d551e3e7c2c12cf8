#include "TavixLive/Saving/DocumentOnDisk.h"

#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Saving/SavedDocument.h"

#include <system_error>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

CompositionSpec resolved(const std::string& text, const fs::path& bundle) {
    return CompositionRoad::resolve(decodeJson<CompositionSpec>(text), bundle).spec;
}

}   // namespace

std::string DocumentOnDisk::textIn(const fs::path& bundle) {
    return readBytes(CompositionProjectBundle::specFile(bundle), JsonLimits{}.maxBytes);
}

DocumentOnDisk DocumentOnDisk::of(std::string text, const fs::path& bundle) {
    CompositionSpec spec = resolved(text, bundle);
    return {std::move(text), std::move(spec)};
}

DocumentOnDisk DocumentOnDisk::read(const fs::path& bundle) {
    CompositionProjectService::load(bundle);   // says what is wrong, and takes back what was cut off
    return of(textIn(bundle), bundle);
}

std::string DocumentOnDisk::textFor(const CompositionSpec& edited, const fs::path& bundle) const {
    return textSaying(text, savedDocument(parseJson(text), spec, edited, {bundle}));
}

DocumentOnDisk DocumentOnDisk::replaced(
    std::string fresh, const fs::path& bundle, IfChanged ifChanged) const {
    const fs::path file = CompositionProjectBundle::specFile(bundle);
    std::error_code ignored;   // writing tells what is wrong
    if (ifChanged == IfChanged::overwrite)
        fs::create_directories(bundle, ignored);
    else if (!isFile(file))
        throw Changed("\"" + file.string() + "\" is not there any more; save over it to write it again.");
    else if (textIn(bundle) != text)
        throw Changed("\"" + file.string() +
                      "\" was changed by another program since it was opened; choose what to keep of its "
                      "changes and of yours, or save over it.");
    DocumentOnDisk now = of(std::move(fresh), bundle);
    CompositionProjectBundle::saveText(now.text, bundle);
    return now;
}

}   // namespace tavix
