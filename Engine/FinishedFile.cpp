#include "Engine/FinishedFile.h"

#include "Engine/Errors.h"
#include "Engine/Interruption.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/SafeOutput.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

namespace tavix::engine {

namespace {

// Says at once that nothing can be written there, before minutes of work.
void requireWritable(const SafeOutput& output) {
    std::FILE* file = std::fopen(output.partial().c_str(), "wb");
    if (!file)
        throw Failure("Cannot write \"" + output.target().string() +
                      "\": " + std::generic_category().message(errno) + ".");
    std::fclose(file);
}

// The sentence of an error and of those that caused it.
std::string told(const std::exception& error) {
    std::string sentence = error.what();
    try {
        std::rethrow_if_nested(error);
    } catch (const std::exception& cause) {
        sentence += " " + told(cause);
    }
    return sentence;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

}   // namespace

void writeFinished(const std::filesystem::path& target, const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    SafeOutput output(target);
    requireWritable(output);
    try {
        write(output.partial());
        interruption.check();
        output.commit();
    } catch (const Interrupted&) {
        throw;
    } catch (const std::exception& error) {
        interruption.check();
        throw Failure(replaced(told(error), output.partial().string(), target.string()));
    }
}

std::int64_t fileSize(const std::filesystem::path& file) {
    return static_cast<std::int64_t>(std::filesystem::file_size(file));
}

}   // namespace tavix::engine
