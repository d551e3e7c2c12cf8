// Gathers the files that a document refers to in one flat folder.
#pragma once

#include "TavixCore/Project/FileOperations.h"

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace tavix {

class AssetPacker {
public:
    using Path = std::filesystem::path;

    using Names = std::map<Path, std::string>;   // of files, by their absolute paths

    // Relative paths hang from `assetRoot`, or from the current folder. `staging` is there and empty. The
    // files of `kept` have their names already, and no other gets one of these.
    AssetPacker(const std::optional<Path>& assetRoot, Path staging, FileOperations& files, Names kept = {});

    // Copies the file, once however often it is asked for, and answers the path for the packed document; an
    // empty path stays empty. A symbolic link is followed: what is packed is the file. Throws a `Failure`
    // when there is no such file.
    std::string rebased(const std::string& path);
    // The same for a recorded clip, whose marks stand in a file beside it.
    std::string rebasedClip(const std::string& path);
    // The same for a folder, with the files that lie in it and not below.
    std::string rebasedFolder(const std::string& path);
    bool hasFile(const std::string& path) const;

    // Each file that was copied, by its absolute path, with its path in the packed document.
    const Names& all() const { return rebased_; }

private:
    Path resolved(const std::string& path) const;
    std::string freeName(const Path& source) const;
    void stage(const Path& source, const std::string& name);

    Path root_, staging_;
    FileOperations& files_;
    Names kept_, rebased_;
    std::set<std::string> names_;   // of all in staging, and those that are kept
};

}   // namespace tavix
