// tavix_device_frames FOLDER [NAME...]: paints the frame pictures of the device catalog, or those that are
// named, into a folder.
#include "DeviceFrames/FramePainter.h"
#include "DeviceFrames/Phones.h"
#include "Generator/NamedFiles.h"

#include "TavixPlatform/Media/StillImages.h"

namespace {

using namespace tavix;

std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const deviceframes::Phone& phone : deviceframes::phones())
        result.emplace_back(phone.device->resourceName);
    return result;
}

void paintInto(const std::string& name, const std::filesystem::path& folder) {
    media::writePng(folder / (name + ".png"), deviceframes::paint(*deviceframes::phoneNamed(name)).view());
}

}   // namespace

int main(int argc, char** argv) {
    return generator::run({"tavix_device_frames", "device frame", names(), paintInto}, argc, argv);
}
