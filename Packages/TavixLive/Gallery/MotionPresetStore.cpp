#include "TavixLive/Gallery/MotionPresetStore.h"

#include "TavixBase/SortingKey.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/System/StandardFolders.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tavix {

namespace fs = std::filesystem;

MotionPresetStore::MotionPresetStore(fs::path folder) : folder_(std::move(folder)) {
    std::error_code ignored;   // a folder that is not there is an empty one
    fs::create_directories(folder_, ignored);
}

fs::path MotionPresetStore::userFolder() { return system::StandardFolders::ofUser().data / "MotionPresets"; }

std::string MotionPresetStore::displayName(const fs::path& file) {
    const std::string name = file.filename().string();
    for (const std::string_view ending : {".motion.json", ".json"})
        if (name.ends_with(ending)) return name.substr(0, name.size() - ending.size());
    return name;
}

std::vector<MotionPresetStore::Item> MotionPresetStore::list() const {
    std::vector<Item> items;
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error))
        if (lowered(entry->path().extension().string()) == ".json")
            items.push_back({displayName(entry->path()), entry->path()});
    std::ranges::sort(
        items, {}, [](const Item& item) { return std::pair(sortingKey(item.name), item.name); });
    return items;
}

std::optional<DeviceMotion> MotionPresetStore::load(const fs::path& file) try {
    return decodeFile<DeviceMotion>(file);
} catch (const Failure&) {
    return std::nullopt;
}

MotionPresetStore::Item MotionPresetStore::importMotion(const fs::path& from) const {
    const fs::path to = folder_ / from.filename();
    writeBytesAtomically(readBytes(from, JsonLimits{}.maxBytes), to);
    return {displayName(to), to};
}

}   // namespace tavix
