#include "TavixPlatform/Scene3D/Entity.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tavix::scene3d {

Entity::Entity(std::string entityName) : name(std::move(entityName)) {}

Entity::~Entity() {
    for (const EntityRef& child : children_) child->parent_ = nullptr;
}

EntityRef Entity::make(std::string name) { return EntityRef(new Entity(std::move(name))); }

void Entity::add(EntityRef child) {
    for (const Entity* above = this; above; above = above->parent_)
        if (above == child.get()) throw std::logic_error("An entity cannot hang below itself.");
    child->removeFromParent();
    child->parent_ = this;
    children_.push_back(std::move(child));
}

void Entity::removeFromParent() {
    if (!parent_) return;
    auto& siblings = parent_->children_;
    parent_ = nullptr;
    const auto place = std::ranges::find(siblings, this, &EntityRef::get);
    const EntityRef kept = std::move(*place);   // may be the last reference; it ends with this scope
    siblings.erase(place);
}

EntityRef Entity::clone() const {
    EntityRef copy = make(name);
    copy->transform = transform;
    copy->isEnabled = isEnabled;
    copy->model = model;
    copy->light = light;
    copy->camera = camera;
    for (const EntityRef& child : children_) copy->add(child->clone());
    return copy;
}

void Entity::walk(const std::function<void(Entity&)>& visit) {
    visit(*this);
    for (const EntityRef& child : children_) child->walk(visit);
}

void Entity::walk(const std::function<void(const Entity&)>& visit) const {
    visit(*this);
    for (const EntityRef& child : children_) std::as_const(*child).walk(visit);
}

Affine3 Entity::worldTransform() const {
    Affine3 result = transform.matrix();
    for (const Entity* above = parent_; above; above = above->parent_)
        result = above->transform.matrix() * result;
    return result;
}

Bounds Entity::visualBounds() const {
    Bounds result;
    walk([&](const Entity& entity) {
        if (entity.model && entity.model->mesh)
            result.add(entity.model->mesh->bounds().transformed(entity.worldTransform()));
    });
    return result;
}

}   // namespace tavix::scene3d
