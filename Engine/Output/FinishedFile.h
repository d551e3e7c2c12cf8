// Files that appear under their name when they are complete, and never before.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace tavix::engine {

class Interruption;

// Lets `write` make a file under another name and then gives it the target's. When that fails, or a signal
// comes, what stood there before stays, and errors speak of the target. Throws `Failure` or `Interrupted`.
void writeFinished(const std::filesystem::path& target, const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write);

std::int64_t fileSize(const std::filesystem::path& file);

}   // namespace tavix::engine
