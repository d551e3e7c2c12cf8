// A file that appears whole or not at all. The work is done in a hidden folder beside the target; the
// finished file takes the target's name in the end, and whatever else happens, the folder is gone.
#pragma once

#include <filesystem>
#include <string>

namespace tavix {

class SafeOutput {
public:
    // What to do when another one, of this program or of another, is writing the target.
    enum class IfTaken { refuse, wait };

    // Claims the target until the end, creates its folder when that is missing, and removes what killed
    // programs left there. A symbolic link stays one: the file that it leads to is written, whether it is
    // there yet or not. Throws `Failure` when the target is taken or cannot be written there.
    explicit SafeOutput(const std::filesystem::path& target, IfTaken ifTaken = IfTaken::refuse);
    ~SafeOutput();
    SafeOutput(const SafeOutput&) = delete;
    SafeOutput& operator=(const SafeOutput&) = delete;

    const std::filesystem::path& target() const { return target_; }
    // Where to write. The name keeps its extension, which tells writers the file type; other files of the
    // work may lie beside it. Nobody else can look into the folder.
    const std::filesystem::path& partial() const { return partial_; }

    // A sentence about the hidden file or its companions, with the names of what they stand for.
    std::string unnamed(std::string sentence) const;

    // Brings the file to the disk and gives it the target's name, replacing what was there and keeping its
    // permissions. Throws `Failure`.
    void commit();

private:
    void claim(IfTaken ifTaken);

    std::filesystem::path target_;   // with no link left in it
    std::filesystem::path folder_, partial_;
    int lock_ = -1;   // on the folder; the system lets go of it however the program ends
    int slot_ = -1;   // among the unfinished folders
};

}   // namespace tavix
