#include "TavixRender/Encoding/FrameNames.h"

#include "TavixBase/Failure.h"

#include <algorithm>

namespace tavix {

std::optional<FrameNames> FrameNames::parsed(const std::filesystem::path& pattern) {
    const std::string name = pattern.filename().string();
    const std::size_t at = name.find('%');
    if (at == std::string::npos) return std::nullopt;
    FrameNames names;
    std::size_t end = at + 1;
    if (name.compare(end, 1, "0") == 0 && end + 1 < name.size() && name[end + 1] >= '1' &&
        name[end + 1] <= '9') {
        names.digits_ = std::size_t(name[end + 1] - '0');
        end += 2;
    }
    if (name.compare(end, 1, "d") != 0 || name.find('%', end) != std::string::npos) return std::nullopt;
    names.folder_ = pattern.parent_path();
    names.before_ = name.substr(0, at);
    names.after_ = name.substr(end + 1);
    return names;
}

FrameNames FrameNames::required(const std::filesystem::path& pattern) {
    if (const std::optional<FrameNames> names = parsed(pattern)) return *names;
    throw Failure("\"" + pattern.string() + "\" has no place for the number of a picture; call it \"" +
                  (pattern.parent_path() / usual).string() + "\".");
}

std::filesystem::path FrameNames::of(std::int64_t frame) const {
    std::string number = std::to_string(frame + 1);
    number.insert(0, digits_ - std::min(digits_, number.size()), '0');
    return folder_ / (before_ + number + after_);
}

}   // namespace tavix
