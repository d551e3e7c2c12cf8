#include "TavixRender/Encoding/FrameOutput.h"

#include "TavixBase/Failure.h"

#include <string>
#include <system_error>

namespace tavix::FrameOutput {

void requireDrawableSize(imaging::Size size) {
    const auto isDrawable = [](int side) { return side >= 1 && side <= imaging::Bitmap::maxSidePx; };
    if (isDrawable(size.width) && isDrawable(size.height)) return;
    throw Failure("A frame of " + std::to_string(size.width) + " × " + std::to_string(size.height) +
                  " pixels cannot be drawn; give both sides of the output 1 to " +
                  std::to_string(imaging::Bitmap::maxSidePx) + " pixels.");
}

void makeRoomFor(const std::filesystem::path& file) {
    std::error_code ignored;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), ignored);
    std::filesystem::remove(file, ignored);
}

}   // namespace tavix::FrameOutput
