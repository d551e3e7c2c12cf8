#include "TavixCore/Animation/Easing.h"

#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/Clamp01.h"

namespace tavix {

double apply(Easing easing, double progress) {
    const double t = KineticMath::clamp01(progress);
    switch (easing) {
    case Easing::linear: return t;
    case Easing::easeIn: return t * t;
    case Easing::easeOut: return t * (2 - t);
    case Easing::easeInOut: return t < 0.5 ? 2 * t * t : 1 - (2 - 2 * t) * (2 - 2 * t) / 2;
    }
    return t;
}

const Names<Easing>& namesOf(std::type_identity<Easing>) {
    using enum Easing;
    static const Names<Easing> table{
        "easing", {{linear, "linear"}, {easeIn, "easeIn"}, {easeOut, "easeOut"}, {easeInOut, "easeInOut"}}};
    return table;
}

}   // namespace tavix
