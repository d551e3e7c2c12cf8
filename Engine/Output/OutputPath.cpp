#include "Engine/Output/OutputPath.h"

#include "Engine/System/Errors.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 4> standardOutputs{"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"};

}   // namespace

std::string lowerExtension(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
        [](char letter) { return letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter; });
    return extension;
}

fs::path outputPath(const std::optional<std::string>& given, const std::string& name,
    const std::string& extension, Names names) {
    if (!given) return name + extension;
    if (given->empty()) throw UsageError("The output has no name; give -o a file.");
    if (std::find(standardOutputs.begin(), standardOutputs.end(), *given) != standardOutputs.end())
        throw UsageError(
            "The output cannot be standard output, because it is finished out of order; name a file with -o.");
    fs::path path = *given;
    std::error_code ignored;
    if (fs::is_directory(path, ignored) || !path.has_filename()) path /= name + extension;
    if (const fs::file_status status = fs::status(path, ignored);
        fs::exists(status) && !fs::is_regular_file(status))
        throw UsageError(
            "\"" + path.string() + "\" is no regular file and is left alone; name another with -o.");
    if (names == Names::withExtension && path.extension().empty())
        throw UsageError(
            "\"" + path.string() + "\" has no extension; call it \"" + path.string() + extension + "\".");
    return path;
}

}   // namespace tavix::engine
