#include "TavixPlatform/System/StandardFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace tavix::system {

namespace fs = std::filesystem;

fs::path homeFolder() {
    if (const char* told = std::getenv("HOME"); told != nullptr && *told == '/') return told;
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? fs::path(user->pw_dir) : fs::path();
}

namespace {

fs::path folder(const char* variable, const char* belowHome) {
    if (const char* told = std::getenv(variable); told != nullptr && *told == '/') return told;
    const fs::path home = homeFolder();
    return home.empty() ? fs::temp_directory_path() : home / belowHome;
}

}   // namespace

StandardFolders StandardFolders::ofDesktop() {
    return {folder("XDG_CONFIG_HOME", ".config"), folder("XDG_STATE_HOME", ".local/state"),
        folder("XDG_CACHE_HOME", ".cache"), folder("XDG_DATA_HOME", ".local/share")};
}

StandardFolders StandardFolders::ofUser() {
    constexpr const char* ours = "tavix";
    const StandardFolders all = ofDesktop();
    return {all.config / ours, all.state / ours, all.cache / ours, all.data / ours};
}

}   // namespace tavix::system
