#include "TavixPlatform/Scene3D/Material.h"

#include "TavixPlatform/Scene3D/TransferCurve.h"

namespace tavix::scene3d {

LinearColor linearFromEncoded(double r, double g, double b) {
    return {float(linearFromSrgb(r)), float(linearFromSrgb(g)), float(linearFromSrgb(b))};
}

}   // namespace tavix::scene3d
