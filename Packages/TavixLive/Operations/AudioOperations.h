// Edits of the music and of the sounds at moments.
#pragma once

#include "TavixLive/Operations/EditState.h"

namespace tavix::AudioOperations {

void setMusicEnabled(EditState& state, bool isOn);
void updateMusic(EditState& state, const MusicBed& bed);
void addSoundCue(EditState& state, double atSec);
void removeSoundCue(EditState& state, std::size_t cue);
void updateSoundCue(EditState& state, std::size_t cue, const SoundCue& to);

}   // namespace tavix::AudioOperations
