#include "Editor/EditorToolchain/EngineArchive.h"

#include "TavixPlatform/System/ChildProcess.h"
#include "TavixPlatform/System/ProgramRun.h"

#include <string>
#include <system_error>
#include <vector>

namespace tavix::EngineArchive {
namespace {

constexpr const char* rightsProgram = "pkexec";

// The prefix and the archive are its arguments, so that nothing in their names is read as a command.
constexpr const char* script = R"sh(
set -eu
umask 022
prefix=$1
mkdir -p "$prefix"
stage=$(mktemp -d "$prefix/.tavix-XXXXXX")
trap 'rm -rf "$stage"' EXIT
mkdir "$stage/new"
tar -C "$stage/new" --no-same-owner --no-same-permissions -xzf "$2"
test -x "$stage/new/bin/tavix"
mkdir -p "$prefix/bin" "$prefix/share"
if [ -d "$stage/new/share/tavix" ]; then
    if [ -e "$prefix/share/tavix" ]; then mv -T "$prefix/share/tavix" "$stage/old"; fi
    mv -T "$stage/new/share/tavix" "$prefix/share/tavix"
fi
mv -T "$stage/new/bin/tavix" "$stage/tavix"
(cd "$stage/new" && find . -type f) | while IFS= read -r file; do
    mkdir -p "$(dirname "$prefix/$file")"
    mv -fT "$stage/new/$file" "$prefix/$file"
done
mv -fT "$stage/tavix" "$prefix/bin/tavix"
)sh";

bool run(const std::string& program, std::vector<std::string> before, const std::filesystem::path& archive,
    const std::filesystem::path& prefix) {
    before.insert(before.end(), {"-c", script, "tavix", prefix.string(), archive.string()});
    try {
        return system::runProgram({.program = program, .arguments = std::move(before)}).status == 0;
    } catch (const std::system_error&) {
        return false;
    }
}

}   // namespace

bool unpack(const std::filesystem::path& archive, const std::filesystem::path& prefix) {
    return run("/bin/sh", {}, archive, prefix);
}

bool unpackWithRights(const std::filesystem::path& archive, const std::filesystem::path& prefix) {
    return run(rightsProgram, {"/bin/sh"}, archive, prefix);
}

bool canAskForRights() { return system::findProgram(rightsProgram).has_value(); }

}   // namespace tavix::EngineArchive
