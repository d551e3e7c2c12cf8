#include "Engine/Output/FinishedFile.h"

#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Support/SafeOutput.h"
#include "TavixRender/Encoding/SafePictures.h"

#include <string>

namespace tavix::engine {

namespace {

// Makes files behind a safe output, which take their names by `commit`.
template <class Output, class Write, class Commit>
void writeSafely(
    const Output& output, const Interruption& interruption, const Write& write, const Commit& commit) {
    try {
        write();
        interruption.check();
        SystemWatch::require();
        commit();
    } catch (const Interrupted&) {
        throw;
    } catch (const std::exception& error) {
        interruption.check();
        SystemWatch::require();   // what libraries make of that is mostly no reason
        throw Failure(output.unnamed(sentenceOf(error)));
    }
}

}   // namespace

void writeFinished(const std::filesystem::path& target, const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    SafeOutput output(target);
    writeSafely(
        output, interruption, [&] { write(output.partial()); }, [&] { output.commit(); });
}

std::int64_t writeFinishedPictures(const std::filesystem::path& pattern, std::int64_t count,
    const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    SafePictures output(pattern);
    writeSafely(
        output, interruption, [&] { write(output.unfinished()); }, [&] { output.commit(count); });
    return output.olderPast(count);
}

std::int64_t fileSize(const std::filesystem::path& file) {
    return static_cast<std::int64_t>(std::filesystem::file_size(file));
}

}   // namespace tavix::engine
