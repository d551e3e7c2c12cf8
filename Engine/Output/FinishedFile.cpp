#include "Engine/Output/FinishedFile.h"

#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixCore/Support/SafeOutput.h"

#include <string>

namespace tavix::engine {

namespace {

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

}   // namespace

void writeFinished(const std::filesystem::path& target, const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    SafeOutput output(target);
    try {
        write(output.partial());
        interruption.check();
        SystemWatch::require();
        output.commit();
    } catch (const Interrupted&) {
        throw;
    } catch (const std::exception& error) {
        interruption.check();
        throw Failure(replaced(sentenceOf(error), output.partial().string(), target.string()));
    }
}

std::int64_t fileSize(const std::filesystem::path& file) {
    return static_cast<std::int64_t>(std::filesystem::file_size(file));
}

}   // namespace tavix::engine
