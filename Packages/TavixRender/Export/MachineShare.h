// How much of the machine a render may take.
#pragma once

#include <cstddef>

namespace tavix::MachineShare {

int cores();   // that this program may run on; at least 1

// The bytes that were asked for; for 0 a quarter of the memory that the machine, or the container that the
// program runs in, has.
std::size_t memoryBytes(std::size_t asked);

// Of these, what the decoders of clips of one worker may take.
std::size_t decoderBytes(std::size_t asked, int workers);

}   // namespace tavix::MachineShare
