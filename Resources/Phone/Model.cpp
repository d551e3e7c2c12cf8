#include "Phone/Model.h"

#include "Phone/Pieces.h"

#include <algorithm>
#include <stdexcept>

namespace tavix::phone {

Model::Model() {
    const Look metal{.color = {0.41, 0.41, 0.40}, .metallic = 0.64, .roughness = 0.52, .specular = 0};
    const Look glass{
        .color = {0.41, 0.41, 0.40}, .roughness = 0.64, .clearcoat = 0.14, .clearcoatRoughness = 0.36};
    const Look ring{.color = {0.41, 0.41, 0.40}, .metallic = 0.82, .roughness = 0.27, .specular = 0.18};
    const Look gloss{.color = {0.003, 0.003, 0.0035}, .roughness = 0.22, .specular = 0.22};
    const Look dark{.color = {0.003, 0.003, 0.0032}, .roughness = 0.6, .specular = 0.3};
    const auto add = [&](std::string name, const Look& look) {
        parts_.push_back({std::move(name), look, false, {}});
    };
    add("frame_color1", metal);
    add("key_color1", metal);
    add("antenna_color2", glass);
    add("back_color2", glass);
    add("plate_color2", glass);
    add("logo", {.color = {0.31, 0.31, 0.30}, .metallic = 0.05, .roughness = 0.58, .specular = 0.2});
    add("ring_color3", ring);
    add("camera_lens", {.color = {0.001, 0.0017, 0.0049},
                           .metallic = 0.1,
                           .roughness = 0.035,
                           .specular = 0.8,
                           .clearcoat = 1,
                           .clearcoatRoughness = 0.05});
    add("coating_21", {.color = {0.02, 0.006, 0.045},
                          .metallic = 0.6,
                          .roughness = 0.18,
                          .clearcoat = 1,
                          .clearcoatRoughness = 0.05});
    add("cover_black1", {.color = {0.003, 0.003, 0.004}, .roughness = 0.08, .specular = 0.3});
    add("bezel_black2", gloss);
    add("edge_black", gloss);
    add("speaker_2112", dark);
    add("joint_black", dark);
    add("port_black", dark);
    add("well_black", dark);
    add("flash",
        {.color = {0.80, 0.76, 0.62}, .roughness = 0.3, .clearcoat = 0.8, .clearcoatRoughness = 0.1});
    add("screen", {.color = {0, 0, 0}, .roughness = 0.1});
    parts_.back().hasPicture = true;
    add("cover_glass", {.color = {1, 1, 1}, .roughness = 0.02, .alpha = 0.03});
    add("chassis_1111", dark);
}

Surface& Model::operator[](std::string_view name) {
    const auto part =
        std::find_if(parts_.begin(), parts_.end(), [&](const Part& p) { return p.name == name; });
    if (part == parts_.end()) throw std::out_of_range("The phone has no part \"" + std::string(name) + "\".");
    return part->surface;
}

Model phoneModel() {
    Model model;
    addFrame(model, openingLoops);
    addFront(model);
    addBack(model);
    addOpenings(model);
    addCameras(model);
    addStrayGeometry(model);
    for (Part& part : model.parts()) part.surface = welded(part.surface);
    return model;
}

}   // namespace tavix::phone
