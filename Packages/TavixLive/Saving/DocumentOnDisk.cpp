#include "TavixLive/Saving/DocumentOnDisk.h"

#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/CompositionProjectService.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Saving/SavedDocument.h"

#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

std::string textIn(const fs::path& bundle) {
    return readBytes(CompositionProjectBundle::specFile(bundle), JsonLimits{}.maxBytes);
}

CompositionSpec resolved(const std::string& text, const fs::path& bundle) {
    return CompositionRoad::resolve(decodeJson<CompositionSpec>(text), bundle).spec;
}

}   // namespace

DocumentOnDisk DocumentOnDisk::read(const fs::path& bundle) {
    CompositionProjectService::load(bundle);   // says what is wrong, and takes back what was cut off
    std::string text = textIn(bundle);
    CompositionSpec spec = resolved(text, bundle);
    return {std::move(text), std::move(spec)};
}

DocumentOnDisk DocumentOnDisk::saved(
    const CompositionSpec& edited, const fs::path& bundle, IfChanged ifChanged) const {
    if (ifChanged == IfChanged::refuse && textIn(bundle) != text)
        throw Failure(
            "\"" + CompositionProjectBundle::specFile(bundle).string() +
            "\" was changed by another program since it was opened; open it again, or save over it.");
    const Json document = savedDocument(parseJson(text), spec, edited, {bundle});
    DocumentOnDisk now{textSaying(text, document), {}};
    now.spec = resolved(now.text, bundle);
    CompositionProjectBundle::saveText(now.text, bundle);
    return now;
}

}   // namespace tavix
