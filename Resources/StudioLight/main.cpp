// tavix_studio_light FILE: works out the light that surrounds devices in space, and writes it.
#include "TavixCore/Support/FileBytes.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <cstdio>
#include <exception>
#include <filesystem>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: tavix_studio_light FILE\n", stderr);
        return 2;
    }
    try {
        const std::filesystem::path file = argv[1];
        std::filesystem::create_directories(std::filesystem::absolute(file).parent_path());
        tavix::writeBytesAtomically(tavix::DeviceStudio::environment()->bytes(), file);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_studio_light: %s\n", failure.what());
        return 3;
    }
    return 0;
}
