#include "TavixCore/Support/UnfinishedFolders.h"

#include <array>
#include <atomic>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tavix::UnfinishedFolders {

namespace {

struct Slot {
    enum State { free, changing, held };
    std::atomic<int> state = free;
    std::array<char, PATH_MAX> path{};
};

// Shared by the whole program, for a signal ends all of it at once.
std::array<Slot, 16> slots;

// Where a name and the length of its entry stand in what the system's call gives (linux_dirent64); the
// library's way of reading folders allocates.
constexpr long lengthAt = 16, nameAt = 19;

void removeFlat(const char* path) {
    const int folder = ::open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) {
        ::rmdir(path);   // an empty one needs no look inside
        return;
    }
    std::array<char, 4096> room;
    for (;;) {
        const long got = ::syscall(SYS_getdents64, folder, room.data(), room.size());
        if (got <= 0) break;
        for (long at = 0; at < got;) {
            unsigned short length = 0;
            std::memcpy(&length, room.data() + at + lengthAt, sizeof length);
            ::unlinkat(folder, room.data() + at + nameAt, 0);   // fails for "." and ".."
            at += length;
        }
    }
    ::close(folder);
    ::rmdir(path);
}

bool removeHeld(Slot& slot) {
    int expected = Slot::held;
    if (!slot.state.compare_exchange_strong(expected, Slot::changing)) return false;
    removeFlat(slot.path.data());
    slot.state = Slot::free;
    return true;
}

}   // namespace

int remember(const std::filesystem::path& folder) noexcept {
    if (folder.native().size() >= PATH_MAX) return -1;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        int expected = Slot::free;
        if (!slots[i].state.compare_exchange_strong(expected, Slot::changing)) continue;
        std::memcpy(slots[i].path.data(), folder.c_str(), folder.native().size() + 1);
        slots[i].state = Slot::held;
        return static_cast<int>(i);
    }
    return -1;
}

void forget(int slot) noexcept {
    if (slot >= 0) slots[static_cast<std::size_t>(slot)].state = Slot::free;
}

void remove(int slot) noexcept {
    if (slot >= 0) removeHeld(slots[static_cast<std::size_t>(slot)]);
}

int removeAll() noexcept {
    int count = 0;
    for (Slot& slot : slots) count += removeHeld(slot);
    return count;
}

}   // namespace tavix::UnfinishedFolders
