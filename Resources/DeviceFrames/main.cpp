// tavix_device_frames FOLDER [NAME...]: paints the frame pictures of the device catalog, or those that are
// named, into a folder.
#include "DeviceFrames/FramePainter.h"
#include "DeviceFrames/Phones.h"

#include "TavixPlatform/Media/StillImages.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace tavix;

void paintInto(const std::filesystem::path& folder, const deviceframes::Phone& phone) {
    media::writePng(folder / (phone.device->resourceName + ".png"), deviceframes::paint(phone).view());
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.empty()) {
        std::fputs("usage: tavix_device_frames FOLDER [NAME...]\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = arguments.front();
    std::filesystem::create_directories(folder);
    if (arguments.size() == 1)
        for (const deviceframes::Phone& phone : deviceframes::phones()) paintInto(folder, phone);
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const deviceframes::Phone* phone = deviceframes::phoneNamed(arguments[i]);
        if (!phone) {
            std::fprintf(stderr, "There is no device frame named \"%s\".\n", arguments[i].c_str());
            return 2;
        }
        paintInto(folder, *phone);
    }
    return 0;
}

}   // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_device_frames: %s\n", failure.what());
        return 3;
    }
}
