// Scenes for tests and measurements: simple solids, and a device of 60,000 triangles in a studio.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Scene3D/Entity.h"

namespace tavix::scene3d::samples {

// Solids around the origin. The slab's outline is a rounded rectangle; it has bevels at its front and back.
MeshRef sphere(float radius, int slices);
MeshRef quad(float width, float height);   // faces +z, texture upright
struct SlabShape {
    float width, height, depth, cornerRadius, bevel;
    int outlinePoints, bevelRings, capRings;
};
MeshRef slab(const SlabShape& shape);

EntityRef entityOf(MeshRef mesh, Material material, Vec3 position = {});
// A camera on the z axis that looks at the origin.
EntityRef cameraAt(float distance, float fieldOfViewDeg);

EquirectangularImage studioPicture();
imaging::BitmapRef screenPicture(imaging::Size size, int variant);

// A phone 1 high whose screen faces +z, under a key light with a shadow, a fill and a rim, in a studio.
struct Device {
    Scene scene;
    EntityRef phone, screen;
    std::vector<EntityRef> body;
    TextureRef texture;
};
// `detail` 1 has about 60,000 triangles; a smaller one fewer, by its square.
Device device(float detail = 1);

}   // namespace tavix::scene3d::samples
