// Walks a document without knowing its C++ types: every value that is there, with its path, its row and
// itself.
//
//     walk(composition, [](const Place& place) {
//         if (const auto* seconds = place.as<double>(); seconds && place.row) ...
//         return Walk::into;
//     });
#pragma once

#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/KeyPath.h"
#include "TavixCore/Support/Type.h"

#include <type_traits>

namespace tavix {

enum class Walk { into, over };   // whether a walk goes on into the value that it stands at

// `Pointer` is a `void*` where the walk may change what it meets. A value of an optional is met as itself and
// only when it is there; an alternative of a union is met inside the union, under the path of its payload.
template <class Pointer> struct PlaceOf {
    const KeyPath& at;
    const Type& type;
    Pointer value;
    const Field* row = nullptr;          // whose value it is, or whose element; null for the document itself
    const RecordType* owner = nullptr;   // the record with that row
    Pointer ownerValue = nullptr;
    const KeyPath* ownerAt = nullptr;   // where that record stands

    operator PlaceOf<const void*>() const { return {at, type, value, row, owner, ownerValue, ownerAt}; }

    // The value as what it is; null when it is of another type.
    template <class T> auto as() const {
        using Result = std::conditional_t<std::is_same_v<Pointer, void*>, T*, const T*>;
        return &type == &typeOf<T>() ? static_cast<Result>(value) : Result{};
    }
    template <class T> auto ownerAs() const {
        using Result = std::conditional_t<std::is_same_v<Pointer, void*>, T*, const T*>;
        return owner == &typeOf<T>() ? static_cast<Result>(ownerValue) : Result{};
    }
};
using Place = PlaceOf<const void*>;
using MutablePlace = PlaceOf<void*>;

// What a walk calls: a function object that outlives it.
template <class P> class Visitor {
public:
    template <class Visit>
    requires(!std::is_same_v<Visit, Visitor>) explicit Visitor(Visit& visit)
        : object_(const_cast<void*>(static_cast<const void*>(&visit))),
          call_([](void* object, const P& place) { return (*static_cast<Visit*>(object))(place); }) {}

    Walk operator()(const P& place) const { return call_(object_, place); }

private:
    void* object_;
    Walk (*call_)(void*, const P&);
};

class RowFilter;

// In the order of the tables; a list and its elements in theirs. A value comes before what is in it. With a
// filter, made for this type or one that leads to it, only what it lets pass is met.
void walkValue(const Type& type, const void* value, const KeyPath& at, Visitor<Place> visit,
    const RowFilter* filter = nullptr);
// The visit may change values, and lists that it then does not walk into.
void walkValue(const Type& type, void* value, const KeyPath& at, Visitor<MutablePlace> visit,
    const RowFilter* filter = nullptr);

template <class T, class Visit> void walk(const T& document, Visit visit) {
    walkValue(typeOf<T>(), &document, KeyPath(), Visitor<Place>(visit));
}
template <class T, class Visit>
requires(!std::is_const_v<T>) void walk(T& document, Visit visit) {
    walkValue(typeOf<T>(), static_cast<void*>(&document), KeyPath(), Visitor<MutablePlace>(visit));
}

}   // namespace tavix
