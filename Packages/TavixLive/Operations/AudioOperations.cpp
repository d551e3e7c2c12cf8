#include "TavixLive/Operations/AudioOperations.h"

namespace tavix::AudioOperations {

namespace {

void dropIfEmpty(std::optional<CompositionAudio>& audio) {
    if (audio && !audio->music && audio->cues.empty()) audio.reset();
}

}   // namespace

void setMusicEnabled(EditState& state, bool isOn) {
    auto& audio = state.spec.audio;
    if (!isOn) {
        if (audio) audio->music.reset();
        dropIfEmpty(audio);
        return;
    }
    if (!audio) audio.emplace();
    if (!audio->music) audio->music = MusicBed{"", 0.7, 0, 0, 1.5, std::nullopt, 0};
}

void updateMusic(EditState& state, const MusicBed& bed) {
    if (!state.spec.audio) state.spec.audio.emplace();
    state.spec.audio->music = bed;
}

void addSoundCue(EditState& state, double atSec) {
    if (!state.spec.audio) state.spec.audio.emplace();
    SoundCue cue;
    cue.atSec = atSec;
    cue.sound = "whoosh";
    cue.gain = 1;
    state.spec.audio->cues.push_back(cue);
}

void removeSoundCue(EditState& state, std::size_t cue) {
    auto& audio = state.spec.audio;
    if (!audio || cue >= audio->cues.size()) return;
    audio->cues.erase(audio->cues.begin() + std::ptrdiff_t(cue));
    dropIfEmpty(audio);
}

void updateSoundCue(EditState& state, std::size_t cue, const SoundCue& to) {
    auto& audio = state.spec.audio;
    if (audio && cue < audio->cues.size()) audio->cues[cue] = to;
}

}   // namespace tavix::AudioOperations
