// A folder with the device motions that a user has collected, one in a file of JSON.
#pragma once

#include "TavixCore/Choreography/DeviceMotion.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

class MotionPresetStore {
public:
    struct Item {
        std::string name;
        std::filesystem::path path;
    };

    // Makes the folder when it is not there and can be made.
    explicit MotionPresetStore(std::filesystem::path folder);
    // That of the user.
    static std::filesystem::path userFolder();

    std::vector<Item> list() const;   // by name, whatever its case
    // Throws a `Failure` when the file cannot be copied into the folder, where it takes the place of its
    // name.
    Item importMotion(const std::filesystem::path& from) const;

    // Nothing for what is no motion.
    static std::optional<DeviceMotion> load(const std::filesystem::path& file);
    // The file's name without ".motion.json", or without ".json".
    static std::string displayName(const std::filesystem::path& file);

private:
    std::filesystem::path folder_;
};

}   // namespace tavix
