#include "TavixPlatform/Imaging/Kernels/Kernels.h"

#include "TavixPlatform/Imaging/Kernels/Families.h"

namespace tavix::imaging {

Kernels bestKernels() {
    Kernels table{};
    fillCompositeKernels(table);
    fillSampleKernels(table);
    fillColorKernels(table);
    fillFilterKernels(table);
    fillPlaneKernels(table);
    fillVideoKernels(table);
    return table;
}

const Kernels& kernels() {
    static const Kernels table = bestKernels();
    return table;
}

}   // namespace tavix::imaging
