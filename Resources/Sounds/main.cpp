// tavix_sounds FOLDER NAME...: writes cues, or the music on-the-beat, as WAV files into a folder.
#include "Sounds/Cues.h"
#include "Sounds/Tune.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tavix::sounds;

void write(const std::vector<std::uint8_t>& bytes, const std::filesystem::path& file) {
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) throw std::runtime_error(file.string() + " could not be written.");
}

// The cues and the music of the example, by the names of their files.
std::optional<Sound> soundNamed(std::string_view name) {
    if (name == "on-the-beat") return tune();
    for (const Cue& cue : cues())
        if (cue.name == name) return cue.make();
    return std::nullopt;
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.size() < 2) {
        std::fputs("usage: tavix_sounds FOLDER NAME...\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = arguments.front();
    std::filesystem::create_directories(folder);
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const auto sound = soundNamed(arguments[i]);
        if (!sound) {
            std::fprintf(stderr, "There is no sound named \"%s\".\n", arguments[i].c_str());
            return 2;
        }
        write(wavBytes(*sound), folder / (arguments[i] + ".wav"));
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
