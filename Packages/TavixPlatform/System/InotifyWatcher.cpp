#include "TavixPlatform/System/InotifyWatcher.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <poll.h>
#include <string_view>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tavix::system {

namespace {

// A file counts when it is closed, and only a folder when it is made.
constexpr std::uint32_t wantedEvents =
    IN_CREATE | IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t folderEvents = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT;

class Descriptor {
public:
    Descriptor(int descriptor, const char* what) : descriptor_(descriptor) {
        if (descriptor < 0) throw std::system_error(errno, std::generic_category(), what);
    }
    ~Descriptor() { ::close(descriptor_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return descriptor_; }

private:
    int descriptor_;
};

}   // namespace

// What the handles of watches reach, which may outlive the watcher.
struct InotifyWatcher::Shared {
    struct Watched {
        int folder;   // as the system numbers it; the same folder has the same number
        std::weak_ptr<void> alive;
        Executor* on;
        Told told;
    };

    void run();
    bool readEvents();
    void tell(int folder, bool isAnyFolder, const std::string& name);
    void end(const void* handle);

    Descriptor inotify{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "Watching folders"};
    Descriptor wake{::eventfd(0, EFD_CLOEXEC), "Watching folders"};
    std::mutex mutex;
    std::vector<std::pair<const void*, Watched>> watched;
};

InotifyWatcher::InotifyWatcher() : shared_(std::make_shared<Shared>()) {
    thread_ = std::thread([shared = shared_] { shared->run(); });
}

InotifyWatcher::~InotifyWatcher() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(shared_->wake, &one, sizeof one);
    thread_.join();
}

FolderWatcher::Watch InotifyWatcher::watch(const std::filesystem::path& folder, Executor& on, Told told) {
    auto end = [shared = std::weak_ptr<Shared>(shared_)](const int* handle) {
        if (const auto alive = shared.lock()) alive->end(handle);
        delete handle;
    };
    Watch handle(new int, std::move(end));
    const std::lock_guard lock(shared_->mutex);
    const int number = ::inotify_add_watch(shared_->inotify, folder.c_str(), wantedEvents | IN_ONLYDIR);
    if (number < 0) throw std::system_error(errno, std::generic_category(), folder.string());
    shared_->watched.push_back({handle.get(), {number, handle, &on, std::move(told)}});
    return handle;
}

void InotifyWatcher::Shared::end(const void* handle) {
    const std::lock_guard lock(mutex);
    const auto ended = std::ranges::find(watched, handle, [](const auto& one) { return one.first; });
    if (ended == watched.end()) return;
    const int folder = ended->second.folder;
    watched.erase(ended);
    if (std::ranges::none_of(watched, [&](const auto& one) { return one.second.folder == folder; }))
        ::inotify_rm_watch(inotify, folder);
}

void InotifyWatcher::Shared::run() {
    std::array<pollfd, 2> waits{{{inotify, POLLIN, 0}, {wake, POLLIN, 0}}};
    for (;;) {
        if (::poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) return;
        if (waits[1].revents != 0) return;
        if (waits[0].revents != 0 && !readEvents()) return;
    }
}

// False when there is nothing to be read any more.
bool InotifyWatcher::Shared::readEvents() {
    alignas(inotify_event) std::array<char, 16384> bytes;
    const ssize_t count = ::read(inotify, bytes.data(), bytes.size());
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    for (std::size_t at = 0; at < std::size_t(count);) {
        inotify_event event;
        std::memcpy(&event, bytes.data() + at, sizeof event);
        const char* const name = bytes.data() + at + sizeof event;
        const bool isEmptyFile = (event.mask & IN_CREATE) != 0 && (event.mask & IN_ISDIR) == 0;
        const bool isWhole = (event.mask & (folderEvents | IN_Q_OVERFLOW)) != 0;
        if (!isEmptyFile)
            tell(event.wd, (event.mask & IN_Q_OVERFLOW) != 0,
                isWhole || event.len == 0 ? std::string() : std::string(name, ::strnlen(name, event.len)));
        at += sizeof event + event.len;
    }
    return true;
}

void InotifyWatcher::Shared::tell(int folder, bool isAnyFolder, const std::string& name) {
    const std::lock_guard lock(mutex);
    for (const auto& [handle, one] : watched)
        if (isAnyFolder || one.folder == folder)
            one.on->post([alive = one.alive, told = one.told, name] {
                if (!alive.expired()) told(name);
            });
}

}   // namespace tavix::system
