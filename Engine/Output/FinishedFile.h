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

// The same of numbered pictures, whose names `pattern` has a place for (`FrameNames`): they take their names
// when all of them are there. Gives their folder's pictures past the last one, which an earlier film left
// there.
std::int64_t writeFinishedPictures(const std::filesystem::path& pattern, std::int64_t count,
    const Interruption& interruption,
    const std::function<void(const std::filesystem::path& unfinished)>& write);

std::int64_t fileSize(const std::filesystem::path& file);

}   // namespace tavix::engine
