// tavix_sounds FOLDER NAME...: writes cue sounds as WAV files into a folder.
#include "Sounds/Cues.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

void write(const std::vector<std::uint8_t>& bytes, const std::filesystem::path& file) {
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) throw std::runtime_error(file.string() + " could not be written.");
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.size() < 2) {
        std::fputs("usage: tavix_sounds FOLDER NAME...\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = arguments.front();
    std::filesystem::create_directories(folder);
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const auto cues = tavix::sounds::cues();
        const auto cue =
            std::find_if(cues.begin(), cues.end(), [&](const auto& one) { return one.name == arguments[i]; });
        if (cue == cues.end()) {
            std::fprintf(stderr, "There is no sound named \"%s\".\n", arguments[i].c_str());
            return 2;
        }
        write(wavBytes(cue->make()), folder / (arguments[i] + ".wav"));
    }
    return 0;
}

}   // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_sounds: %s\n", failure.what());
        return 3;
    }
}
