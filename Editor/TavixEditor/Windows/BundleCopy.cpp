#include "TavixEditor/Windows/BundleCopy.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixEditor/App/Studio.h"
#include "TavixPlatform/System/Continuation.h"

#include <exception>
#include <system_error>
#include <utility>

namespace tavix::editor {

namespace {

namespace fs = std::filesystem;

// Hidden, and a bundle by its name.
fs::path beside(const fs::path& target, const char* end) {
    return target.parent_path() / ("." + target.stem().string() + end + target.extension().string());
}

// Written beside the target and renamed. What stood there goes only after that.
void copy(const fs::path& from, const std::string& text, const fs::path& target) {
    if (fs::exists(target) && fs::equivalent(from, target))
        throw Failure("The project has this name already: save it, or choose another name.");
    const fs::path fresh = beside(target, ".new"), old = beside(target, ".old");
    fs::remove_all(fresh);
    fs::copy(from, fresh, fs::copy_options::recursive);
    CompositionProjectBundle::saveText(text, fresh);
    const bool isReplaced = fs::exists(target);
    if (isReplaced) fs::rename(target, old);
    fs::rename(fresh, target);
    if (isReplaced) fs::remove_all(old);
}

}   // namespace

void copyBundle(Studio& studio, const fs::path& target, std::function<void()> then) {
    EditorState& state = studio.model.state;
    system::runThere(
        studio.files(), studio.main(),
        [from = *state.bundle(), text = studio.model.savedText(), target] {
            copy(from, text(), target);
            return true;
        },
        [&state, then = std::move(then)](system::Outcome<bool>& outcome) {
            try {
                outcome.value();
                then();
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Could not save as: ") + error.what();
            }
        });
}

}   // namespace tavix::editor
