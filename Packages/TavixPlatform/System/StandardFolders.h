// Where a program of a user keeps what it needs, by the XDG Base Directory Specification 0.8. No folder is
// made here.
#pragma once

#include <filesystem>

namespace tavix::system {

struct StandardFolders {
    std::filesystem::path config;   // what the user chose
    std::filesystem::path state;    // what should outlast a restart, but not a move to another machine
    std::filesystem::path cache;    // what can be made again
    std::filesystem::path data;     // what the user collected

    // $XDG_CONFIG_HOME and its like, which count when they are absolute, or their defaults in the home
    // folder; without a home folder all of it is temporary.
    static StandardFolders ofDesktop();
    // "tavix" in each of those.
    static StandardFolders ofUser();
};

// That of $HOME, if it is absolute, or of the user's account; empty without one.
std::filesystem::path homeFolder();

}   // namespace tavix::system
