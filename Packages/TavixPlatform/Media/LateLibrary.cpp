#include "TavixPlatform/Media/LateLibrary.h"

#include "TavixPlatform/Media/LateHeif.h"
#include "TavixPlatform/Media/LateLibav.h"
#include "TavixPlatform/Media/MediaFault.h"

#include <dlfcn.h>
#include <string>

namespace tavix::media {
namespace {

// Every call adds to a count of the loader's; none is ever given back, so what was loaded stays.
void* opened(const char* file) { return dlopen(file, RTLD_LAZY | RTLD_LOCAL); }

}   // namespace

void* LateLibrary::find(const char* function) const {
    void* const library = opened(file_);
    if (void* const address = library ? dlsym(library, function) : nullptr) return address;
    const char* const told = dlerror();
    const std::string reason = told ? told : "unknown";
    // The loader maps files, and does not ask for memory as programs do.
    const bool isTooMuch = reason.find("failed to map") != std::string::npos ||
                           reason.find("cannot allocate memory") != std::string::npos;
    throw MediaFault(std::string("The library ") + file_ + " cannot be used: " + reason + ". " +
                     (isTooMuch ? "There is not enough memory for it; close other programs."
                                : "Install it anew (Debian's package " + std::string(package_) + ")."));
}

bool LateLibrary::load() const noexcept { return opened(file_) != nullptr; }

void loadLateLibraries() noexcept {
    for (const LateLibrary* library : {&lateFormats, &lateScaling, &lateHeif}) library->load();
}

}   // namespace tavix::media
