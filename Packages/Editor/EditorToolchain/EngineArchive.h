// The command and all that it needs, packed: engine.tar.gz, as `./dev package` makes it. It holds the tree of
// an installation: bin/tavix, the resources in share/tavix, which it finds from where it stands itself, the
// man pages and the completion of the shells.
#pragma once

#include <filesystem>

namespace tavix::EngineArchive {

// Unpacks it into a prefix, as /usr/local or ~/.local, which is made when it is not there. Every file takes
// its place by a rename, the command last, so that one that runs goes on, and an unpacking that is cut short
// leaves the old one. False when it could not be done. Blocks.
bool unpack(const std::filesystem::path& archive, const std::filesystem::path& prefix);
// The same by polkit's pkexec, which asks for a password: false also when that is refused.
bool unpackWithRights(const std::filesystem::path& archive, const std::filesystem::path& prefix);
bool canAskForRights();   // whether pkexec is on this machine

}   // namespace tavix::EngineArchive
