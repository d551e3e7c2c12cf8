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
    const char* const reason = dlerror();
    throw MediaFault(std::string("The library ") + file_ +
                     " cannot be used: " + (reason ? reason : "unknown") +
                     ". Install it anew (Debian's package " + package_ + ").");
}

bool LateLibrary::load() const noexcept { return opened(file_) != nullptr; }

void loadLateLibraries() noexcept {
    for (const LateLibrary* library : {&lateFormats, &lateScaling, &lateHeif}) library->load();
}

}   // namespace tavix::media
