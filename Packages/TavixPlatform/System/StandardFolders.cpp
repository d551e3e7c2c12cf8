#include "TavixPlatform/System/StandardFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace tavix::system {

namespace {

namespace fs = std::filesystem;

fs::path home() {
    if (const char* told = std::getenv("HOME"); told != nullptr && *told == '/') return told;
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? fs::path(user->pw_dir) : fs::path();
}

fs::path folder(const char* variable, const char* belowHome) {
    constexpr const char* ours = "tavix";
    if (const char* told = std::getenv(variable); told != nullptr && *told == '/')
        return fs::path(told) / ours;
    const fs::path ofUser = home();
    return ofUser.empty() ? fs::temp_directory_path() / ours : ofUser / belowHome / ours;
}

}   // namespace

StandardFolders StandardFolders::ofUser() {
    return {folder("XDG_CONFIG_HOME", ".config"), folder("XDG_STATE_HOME", ".local/state"),
        folder("XDG_CACHE_HOME", ".cache"), folder("XDG_DATA_HOME", ".local/share")};
}

}   // namespace tavix::system
