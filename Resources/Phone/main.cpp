// tavix_phone_model FILE: builds the phone and writes it as binary glTF.
#include "Phone/GltfFile.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: tavix_phone_model FILE\n", stderr);
        return 2;
    }
    try {
        tavix::phone::writeFile(tavix::phone::binaryGltf(tavix::phone::phoneModel()), argv[1]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_phone_model: %s\n", failure.what());
        return 3;
    }
    return 0;
}
