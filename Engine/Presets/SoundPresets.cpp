#include "Engine/Presets/SoundPresets.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Names.h"
#include "TavixPlatform/Media/AudioReader.h"
#include "TavixRender/Assets/BundledSounds.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix::engine::SoundPresets {

namespace {

struct Measured {
    double lengthSec = 0, peak = 0;   // the peak of full scale 1
};

Measured measured(const std::filesystem::path& file) {
    constexpr media::AudioFormat format{48000, 2};
    media::AudioReader reader(file, format);
    std::vector<float> block(4096 * 2);
    std::size_t frames = 0;
    float peak = 0;
    while (const std::size_t got = reader.read(block)) {
        for (std::size_t i = 0; i < 2 * got; ++i) peak = std::max(peak, std::abs(block[i]));
        frames += got;
    }
    return {double(frames) / format.sampleRate, peak};
}

double decibels(double peak) { return std::round(20 * std::log10(std::max(peak, 1e-6)) * 10) / 10; }

Preset preset(SFXCatalog::Sound sound) {
    Preset preset{std::string(nameOf(sound)), {}, {}};
    const auto file = BundledSounds::url(sound);
    if (!file) {
        preset.about = "not installed";
        return preset;
    }
    const Measured heard = measured(*file);
    preset.about = twoDecimals(heard.lengthSec) + " s, peak " + decimals(decibels(heard.peak), 1) + " dB";
    preset.details = {
        {"lengthSec", std::round(heard.lengthSec * 1000) / 1000}, {"peakDb", decibels(heard.peak)}};
    return preset;
}

}   // namespace

std::vector<Preset> all() {
    std::vector<Preset> presets;
    for (const SFXCatalog::Sound sound : allCases<SFXCatalog::Sound>()) presets.push_back(preset(sound));
    return presets;
}

}   // namespace tavix::engine::SoundPresets
