// A tree of things in space: meshes, lights, cameras.
#pragma once

#include "TavixPlatform/Scene3D/EnvironmentLight.h"
#include "TavixPlatform/Scene3D/Light.h"
#include "TavixPlatform/Scene3D/Material.h"
#include "TavixPlatform/Scene3D/Mesh.h"
#include "TavixPlatform/Scene3D/Vectors.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix::scene3d {

// A mesh and the material of each of its slots. A slot without one is drawn in the default material.
struct Model {
    MeshRef mesh;
    std::vector<Material> materials;
};

class Entity;
using EntityRef = std::shared_ptr<Entity>;   // held by the parent, and by whoever moves it

// One owner thread at a time, the same for the whole tree: nothing may change while a renderer draws it.
class Entity {
public:
    static EntityRef make(std::string name = {});
    Entity(const Entity&) = delete;
    Entity& operator=(const Entity&) = delete;
    ~Entity();

    std::string name;
    Transform transform;     // in the parent's space
    bool isEnabled = true;   // when not, nothing of the tree from here is drawn, nor gives light
    std::optional<Model> model;
    std::optional<Light> light;
    std::optional<PerspectiveCamera> camera;

    const std::vector<EntityRef>& children() const { return children_; }
    Entity* parent() const { return parent_; }
    void add(EntityRef child);   // leaves its former parent; the tree may not come to hold itself
    void removeFromParent();

    // The tree from here, without a parent. Meshes and textures are shared, all else is its own.
    EntityRef clone() const;
    // Calls `visit` for this entity and all below it: parents first, children in order, disabled ones too.
    void walk(const std::function<void(Entity&)>& visit);
    void walk(const std::function<void(const Entity&)>& visit) const;
    Affine3 worldTransform() const;
    // The box around all meshes from here down in world space, those of disabled entities too.
    Bounds visualBounds() const;

private:
    explicit Entity(std::string entityName);
    std::vector<EntityRef> children_;
    Entity* parent_ = nullptr;
};

// What a renderer draws, and from where.
struct Scene {
    EntityRef root;
    EntityRef camera;   // an enabled or disabled entity with a camera; it need not hang under the root
    std::optional<EnvironmentLight> environment;   // reaches every mesh
};

}   // namespace tavix::scene3d
