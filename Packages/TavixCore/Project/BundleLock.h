// Keeps two programs from writing one bundle at a time.
#pragma once

#include <filesystem>

namespace tavix {

// Held from construction to destruction. The system lets go of it when the program ends, however it ends.
class BundleLock {
public:
    explicit BundleLock(const std::filesystem::path& bundle);
    ~BundleLock();
    BundleLock(const BundleLock&) = delete;
    BundleLock& operator=(const BundleLock&) = delete;

    // False when another one has it. True also on file systems that know no locks.
    bool isHeld() const { return isHeld_; }

private:
    int folder_;
    bool isHeld_;
};

}   // namespace tavix
