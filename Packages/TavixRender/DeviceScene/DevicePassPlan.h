// How finely the passes of a frame are drawn.
#pragma once

#include "TavixPlatform/Scene3D/Renderer.h"

namespace tavix {

// `preview` is for a film that is played while it is made, `rough` for one whose pictures would come too
// late.
enum class DeviceQuality { rough, preview, full };

// The body is drawn at the size of the picture, and lit once in each pixel of a surface. The screen is drawn
// up to twice as large: its picture is the one thing with detail finer than a pixel.
struct DevicePassPlan {
    scene3d::Samples body = scene3d::Samples::sixtyFour;
    int screenScale = 2;
    scene3d::Samples screen = scene3d::Samples::sixteen;
    scene3d::TextureDetail screenTexture = scene3d::TextureDetail::quick;
    int reduction = 1;             // along a side; such a picture is enlarged to the size of the output
    bool mayHalveScreen = false;   // the picture on the screen, where it has texels to spare
};

// How often a picture on the screen is halved that has so many texels to a pixel, along a side: as long as
// about one is left where the phone turns a side to the camera.
int halvingsOfScreen(double texelsPerPixel);

// For a picture of that size. One with a side above 2048 pixels has pixels enough, and takes a quarter of the
// samples that a smaller one does; a preview takes four a pixel, and a rough one draws every other pixel.
DevicePassPlan devicePassPlan(imaging::Size output, DeviceQuality quality);

}   // namespace tavix
