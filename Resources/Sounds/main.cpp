// tavix_sounds FOLDER [NAME...]: writes the cue sounds and the music of an example, or those that are named,
// as WAV files into a folder.
#include "Generator/NamedFiles.h"
#include "Sounds/Cues.h"
#include "Sounds/Tune.h"

#include <fstream>
#include <stdexcept>

namespace {

using namespace tavix;

std::vector<sounds::Cue> all() {
    std::vector<sounds::Cue> result(sounds::cues().begin(), sounds::cues().end());
    result.push_back({"on-the-beat", sounds::tune});
    return result;
}

std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const sounds::Cue& sound : all()) result.emplace_back(sound.name);
    return result;
}

void writeInto(const std::string& name, const std::filesystem::path& folder) {
    for (const sounds::Cue& sound : all()) {
        if (sound.name != name) continue;
        const std::vector<std::uint8_t> bytes = wavBytes(sound.make());
        const std::filesystem::path file = folder / (name + ".wav");
        std::ofstream stream(file, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!stream.flush()) throw std::runtime_error(file.string() + " could not be written.");
    }
}

}   // namespace

int main(int argc, char** argv) {
    return generator::run({"tavix_sounds", "sound", names(), writeInto}, argc, argv);
}
