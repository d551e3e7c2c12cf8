#include "TavixPlatform/Scene3D/Lighting.h"
#include "TavixPlatform/Scene3D/Sampling.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace tavix::scene3d {

namespace {

constexpr int sampleCount = 512;
constexpr double leastRoughness = 0.045;   // as when shading

// The integral of the reflection over all lights, by sampling the normals that microfacets have.
ReflectanceTable::Entry integrate(double roughness, double cosine) {
    const double alpha = roughness * roughness, alpha2 = alpha * alpha;
    const double sine = std::sqrt(1 - cosine * cosine);
    double scale = 0, bias = 0;
    for (int i = 0; i < sampleCount; ++i) {
        const FacetSample h = facetSample(i, sampleCount, alpha);
        const double vh = std::max(sine * h.x + cosine * h.z, 0.0), nl = 2 * vh * h.z - cosine;
        if (nl <= 0) continue;
        const double shadowing = nl * std::sqrt(cosine * cosine * (1 - alpha2) + alpha2) +
                                 cosine * std::sqrt(nl * nl * (1 - alpha2) + alpha2);
        const double part =
            2 * nl * vh / (shadowing * h.z);   // 4 times visibility, over the sampling's density
        const double away = 1 - vh, away2 = away * away, fresnel = away2 * away2 * away;
        scale += part * (1 - fresnel);
        bias += part * fresnel;
    }
    return {float(scale / sampleCount), float(bias / sampleCount)};
}

std::unique_ptr<const ReflectanceTable> makeTable() {
    auto table = std::make_unique<ReflectanceTable>();
    for (int r = 0; r < ReflectanceTable::roughnessCount; ++r) {
        auto& row = table->entries[r];
        const double roughness = std::max(double(r) / (ReflectanceTable::roughnessCount - 1), leastRoughness);
        for (int c = 0; c < ReflectanceTable::cosineCount; ++c)
            row[c] = integrate(roughness, std::max(double(c) / (ReflectanceTable::cosineCount - 1), 1e-3));
        row[ReflectanceTable::cosineCount] = row[ReflectanceTable::cosineCount - 1];
    }
    return table;
}

}   // namespace

const ReflectanceTable& reflectanceTable() {
    static const std::unique_ptr<const ReflectanceTable> table = makeTable();
    return *table;
}

}   // namespace tavix::scene3d
