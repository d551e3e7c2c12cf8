// tavix_icons FOLDER: draws the icons into the folders of a theme, as icons/hicolor has them.
#include "Icons/Icons.h"

#include "TavixPlatform/Media/StillImages.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace tavix;

fs::path madeFolder(const fs::path& theme, const std::string& size, std::string_view context) {
    const fs::path folder = theme / size / context;
    fs::create_directories(folder);
    return folder;
}

void draw(const icons::Icon& icon, const fs::path& theme) {
    for (const int sidePx : icons::sidesPx) {
        const std::string size = std::to_string(sidePx) + "x" + std::to_string(sidePx);
        media::writePng(madeFolder(theme, size, icon.context) / (std::string(icon.name) + ".png"),
            icon.drawing(sidePx).drawn(sidePx).view());
    }
    const fs::path file = madeFolder(theme, "scalable", icon.context) / (std::string(icon.name) + ".svg");
    std::ofstream out(file);
    out << icon.drawing(icons::sidesPx.back()).svg();
    if (!out.flush()) throw std::runtime_error("Cannot write \"" + file.string() + "\".");
}

}   // namespace

int main(int argc, char** argv) try {
    if (argc != 2) {
        std::fputs("usage: tavix_icons FOLDER\n", stderr);
        return 2;
    }
    for (const icons::Icon& icon : icons::all()) draw(icon, argv[1]);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "tavix_icons: %s\n", error.what());
    return 3;
}
