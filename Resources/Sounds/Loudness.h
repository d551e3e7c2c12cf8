// How loud a sound is to the ear: ITU-R BS.1770-4.
#pragma once

#include "Sounds/Sound.h"

namespace tavix::sounds {

// The loudest 400 ms, in LUFS (the "momentary" loudness of EBU Tech 3341), looked for every 10 ms. The sound
// is taken to have silence around it. -infinity for silence.
double momentaryLoudness(const Sound& sound);

// Brings a sound to that momentary loudness.
void matchLoudness(Sound& sound, double lufs);

}   // namespace tavix::sounds
