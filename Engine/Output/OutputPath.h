// Where a file that the command makes is written.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tavix::engine {

enum class Names { withExtension, any };

// `given`, or `name` with the extension beside where the command runs. A folder means a file of that name in
// it. Throws `UsageError` for what is no place for a file, as standard output, a device or, unless
// `Names::any`, a name without an extension.
std::filesystem::path outputPath(const std::optional<std::string>& given, const std::string& name,
    const std::string& extension, Names names = Names::withExtension);

// ".mp4" of "FILM.MP4".
std::string lowerExtension(const std::filesystem::path& path);

}   // namespace tavix::engine
