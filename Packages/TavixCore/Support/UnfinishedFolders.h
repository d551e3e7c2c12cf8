// The hidden folders of work under way in this program, so that whoever ends it in the midst of that can
// remove them.
#pragma once

#include <filesystem>

namespace tavix::UnfinishedFolders {

// Answers a slot for `forget`, or -1 when there are too many or the path is too long; then whoever writes
// there next sweeps up.
int remember(const std::filesystem::path& folder) noexcept;
void forget(int slot) noexcept;
// Removes the folder with the files in it and forgets it. Allocates nothing.
void remove(int slot) noexcept;

// Removes every one with the files in it, and answers how many there were. Allocates nothing and takes no
// lock, so it may be called in a signal handler.
int removeAll() noexcept;

}   // namespace tavix::UnfinishedFolders
