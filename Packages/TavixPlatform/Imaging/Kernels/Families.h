// The kernel families: each fills in its part of the table for the best instruction set at hand.
#pragma once

#include "TavixPlatform/Imaging/Kernels/Kernels.h"

namespace tavix::imaging {

void fillCompositeKernels(Kernels& table);
void fillSampleKernels(Kernels& table);
void fillColorKernels(Kernels& table);
void fillFilterKernels(Kernels& table);
void fillPlaneKernels(Kernels& table);
void fillVideoKernels(Kernels& table);
Kernels bestKernels();

}   // namespace tavix::imaging
