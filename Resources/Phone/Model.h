// The phone as named parts: one part per material, one mesh per part.
#pragma once

#include "Phone/Surface.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::phone {

// What a renderer that knows no finishes would show. Colours are linear light.
struct Look {
    std::array<double, 3> color{1, 1, 1};
    double metallic = 0, roughness = 0.5;
    double specular = 0.5;   // reflectance of what is not metal, 0.5 is 4 %
    double clearcoat = 0, clearcoatRoughness = 0;
    double alpha = 1;
};

struct Part {
    std::string name;   // of the mesh and of its material; the program tells a part's role by it
    Look look;
    bool hasPicture = false;   // texture coordinates are of use
    Surface surface;
};

class Model {
public:
    Model();   // with every part, still empty
    std::vector<Part>& parts() { return parts_; }
    const std::vector<Part>& parts() const { return parts_; }
    Surface& operator[](std::string_view name);   // of an existing part

private:
    std::vector<Part> parts_;
};

// Standing on y = 0, its middle at x = 0, its screen towards -z.
Model phoneModel();

}   // namespace tavix::phone
