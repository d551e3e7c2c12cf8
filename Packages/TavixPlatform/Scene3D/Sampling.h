// Directions for sums over the hemisphere, without a library's trigonometry. Inside the library only.
#pragma once

namespace tavix::scene3d {

// The normal of a microfacet around (0, 0, 1), drawn as GGX distributes them; number i of a low-discrepancy
// set (Hammersley's).
struct FacetSample {
    double x, y, z;
};
FacetSample facetSample(int index, int count, double alpha);

// The angle of the point (x, y) in turns, -0.5 to 0.5, within 1e-12.
double turnsOf(double y, double x);

}   // namespace tavix::scene3d
