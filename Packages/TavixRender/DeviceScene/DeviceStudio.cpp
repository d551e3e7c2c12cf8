#include "TavixRender/DeviceScene/DeviceStudio.h"

#include "TavixRender/DeviceScene/DeviceFinishMaterials.h"
#include "TavixRender/DeviceScene/DeviceMeshRepair.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace tavix::DeviceStudio {

namespace {

std::string lowerCase(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

// Of a material that is not physically based the empty name, whatever it is called.
std::string nameOf(const scene3d::Material& material) {
    const auto* physical = std::get_if<scene3d::PhysicallyBased>(&material);
    return physical == nullptr ? std::string() : lowerCase(physical->name);
}

class Preparation {
public:
    explicit Preparation(DeviceFinish finish) : materials_(finish) {}

    void visit(const scene3d::EntityRef& entity) {
        if (entity->model) sort(entity);
        for (const auto& child : entity->children()) visit(child);
    }
    PreparedModel result() { return std::move(prepared_); }

private:
    void sort(const scene3d::EntityRef& entity) {
        std::vector<std::string> names;
        std::vector<MaterialRole> roles;
        for (const auto& material : entity->model->materials) {
            names.push_back(nameOf(material));
            roles.push_back(role(names.back()));
            ++prepared_.roleCounts[roles.back()];
        }
        const auto has = [&](MaterialRole wanted) { return std::ranges::count(roles, wanted) > 0; };
        if (has(MaterialRole::screenGlass) || has(MaterialRole::hiddenArtifact))
            entity->isEnabled = false;
        else if (has(MaterialRole::screen))
            prepared_.screen = entity;
        else
            takeAsBody(entity, names, roles);
    }

    void takeAsBody(const scene3d::EntityRef& entity, const std::vector<std::string>& names,
        const std::vector<MaterialRole>& roles) {
        const auto any = [&](auto&& test) { return std::ranges::any_of(names, test); };
        const auto contains = [](std::string_view part) {
            return [part](const std::string& name) { return name.find(part) != std::string::npos; };
        };
        const auto endsWith = [](std::string_view part) {
            return [part](const std::string& name) { return name.ends_with(part); };
        };
        const bool isBezel = any(contains("black2"));
        if (isBezel) prepared_.removedArtifactTriangles += removeBottomCenterArtifact(*entity);
        prepared_.body.push_back(entity);
        if (isBezel || any(endsWith("_2112"))) prepared_.screenOccluders.push_back(entity);
        if (any(contains("black1")) || any(endsWith("_21")) || any(endsWith("_lens")))
            prepared_.rearCameraHardware.push_back(entity);
        for (std::size_t i = 0; i < roles.size(); ++i) {
            auto& material = entity->model->materials[i];
            material = materials_.material(roles[i], material);
        }
        if (!isBezel) return;
        if (auto variant = rearCameraMeshVariant(entity))
            prepared_.rearCameraMeshes.push_back(std::move(*variant));
    }

    DeviceFinishMaterials materials_;
    PreparedModel prepared_;
};

}   // namespace

MaterialRole role(std::string_view name) {
    const std::string lower = lowerCase(name);
    const auto contains = [&](std::string_view part) { return lower.find(part) != std::string::npos; };
    const auto endsWith = [&](std::string_view part) { return lower.ends_with(part); };
    if (contains("screen")) return MaterialRole::screen;
    if (contains("glass")) return MaterialRole::screenGlass;
    if (contains("lens")) return MaterialRole::lens;
    if (endsWith("_1111") || endsWith("_g") || endsWith("_2222")) return MaterialRole::hiddenArtifact;
    if (endsWith("_color2")) return MaterialRole::backGlass;
    if (endsWith("_color3")) return MaterialRole::cameraRing;
    if (contains("logo")) return MaterialRole::logo;
    if (contains("black") || endsWith("_21") || endsWith("_2112")) return MaterialRole::darkTrim;
    if (contains("color")) return MaterialRole::titanium;
    return MaterialRole::preserve;
}

PreparedModel prepare(const scene3d::EntityRef& model, DeviceFinish finish) {
    Preparation preparation(finish);
    preparation.visit(model);
    return preparation.result();
}

}   // namespace tavix::DeviceStudio
