#include "Engine/Output/FinishedFile.h"

#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Support/DiskSync.h"
#include "TavixCore/Support/SafeOutput.h"
#include "TavixRender/Encoding/FrameNames.h"

#include <optional>
#include <string>
#include <system_error>

namespace tavix::engine {

namespace {

// Makes files behind a safe output, which takes its name when `finish` has been called.
template <class Write, class Finish>
void writeSafely(
    SafeOutput& output, const Interruption& interruption, const Write& write, const Finish& finish) {
    try {
        write();
        interruption.check();
        SystemWatch::require();
        finish();
        output.commit();
    } catch (const Interrupted&) {
        throw;
    } catch (const std::exception& error) {
        interruption.check();
        throw Failure(output.unnamed(sentenceOf(error)));
    }
}

}   // namespace

void writeFinished(const std::filesystem::path& target, const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    SafeOutput output(target);
    writeSafely(
        output, interruption, [&] { write(output.partial()); }, [] {});
}

std::int64_t writeFinishedPictures(const std::filesystem::path& pattern, std::int64_t count,
    const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    const auto names = FrameNames::parsed(pattern);
    if (!names) throw Failure("\"" + pattern.string() + "\" has no place for the number of a picture.");
    SafeOutput output(names->of(0));
    const std::filesystem::path unfinished = output.partial().parent_path() / pattern.filename();
    const FrameNames hidden = *FrameNames::parsed(unfinished);
    const auto finish = [&] {
        for (std::int64_t i = 1; i < count; ++i) {
            if (const std::error_code error = syncToDisk(hidden.of(i))) throw std::system_error(error);
            std::filesystem::rename(hidden.of(i), names->of(i));
        }
        if (hidden.of(0) != output.partial()) std::filesystem::rename(hidden.of(0), output.partial());
    };
    writeSafely(
        output, interruption, [&] { write(unfinished); }, finish);
    std::int64_t left = 0;
    while (std::filesystem::exists(names->of(count + left))) ++left;
    return left;
}

std::int64_t fileSize(const std::filesystem::path& file) {
    return static_cast<std::int64_t>(std::filesystem::file_size(file));
}

}   // namespace tavix::engine
