// How much of the machine a render may take.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Composition2D/RenderRoom.h"

#include <cstddef>

namespace tavix::MachineShare {

int cores();   // that this program may run on; at least 1

// The bytes that were asked for; for 0 a quarter of the memory that the machine, or the container that the
// program runs in, has.
std::size_t memoryBytes(std::size_t asked);

// What one of so many workers keeps of these bytes: a third for the decoders of clips, a sixteenth for
// decoded pictures, and an eighth for what its evaluator has drawn, none of them more than pays.
RenderRoom roomOf(std::size_t asked, int workers);
imaging::EvaluatorOptions evaluation(imaging::EvaluatorOptions options, std::size_t asked, int workers);

}   // namespace tavix::MachineShare
