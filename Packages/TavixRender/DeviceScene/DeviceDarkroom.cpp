#include "TavixRender/DeviceScene/DeviceDarkroom.h"

#include <algorithm>
#include <utility>

namespace tavix {

void DeviceDarkroom::show(
    ScreenRef& screen, const Digest& picture, const std::function<imaging::BitmapPart()>& draw) {
    std::erase_if(screens_, [](const auto& known) { return known.expired(); });
    for (const auto& known : screens_)
        if (auto other = known.lock(); other->picture == picture) {
            if (other == spare_) spare_.reset();
            if (screen.use_count() == 1) spare_ = screen;
            screen = std::move(other);
            return;
        }
    imaging::BitmapPart pixels = draw();
    if (!screen || screen.use_count() > 1) {
        if (!spare_) screens_.push_back(spare_ = std::make_shared<DeviceScreen>());
        screen = std::exchange(spare_, nullptr);
    }
    screen->texture->replace(std::move(pixels.bitmap), pixels.fromTopLeft);
    screen->picture = picture;
}

}   // namespace tavix
