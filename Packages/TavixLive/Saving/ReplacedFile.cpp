#include "TavixLive/Saving/ReplacedFile.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"

#include <chrono>

namespace tavix {

void keepReplaced(const Backups& backups, const std::filesystem::path& project,
    const std::filesystem::path& file, const RenderLog& log) {
    using namespace std::chrono;
    if (!isFile(file)) return;
    try {
        backups.keep(
            project, readBytes(file, JsonLimits{}.maxBytes), floor<milliseconds>(system_clock::now()));
    } catch (const Failure& failure) {
        tell(log, Finding::warning("backup-not-kept", failure.message()));
    }
}

}   // namespace tavix
