#include "Editor/EditorDomain/Timeline/EasePreset.h"

#include "TavixCore/Animation/CurveEvaluation.h"

#include <algorithm>

namespace tavix {

const std::vector<EasePreset>& EasePreset::named() {
    static const std::vector<EasePreset> table{{"Linear", LinearCurve{}},
        {"Ease Out", BezierCurve{0.16, 1, 0.3, 1}}, {"Ease In", BezierCurve{0.55, 0, 0.85, 1}},
        {"Ease In-Out", BezierCurve{0.42, 0, 0.58, 1}}, {"Overshoot", BezierCurve{0.34, 1.56, 0.64, 1}}};
    return table;
}

std::optional<std::string_view> EasePreset::name(const TimingCurve& curve) {
    for (const EasePreset& preset : named())
        if (preset.curve == curve) return preset.label;
    return std::nullopt;
}

namespace EaseEditing {

BezierCurve dragged(BezierCurve curve, Handle handle, double x, double y) {
    (handle == Handle::first ? curve.x1 : curve.x2) = std::clamp(x, 0.0, 1.0);
    (handle == Handle::first ? curve.y1 : curve.y2) = std::clamp(y, leastHandleY, mostHandleY);
    return curve;
}

BezierCurve asBezier(const TimingCurve& curve) {
    if (const auto* bezier = std::get_if<BezierCurve>(&curve)) return *bezier;
    if (std::holds_alternative<LinearCurve>(curve)) return {1.0 / 3, 1.0 / 3, 2.0 / 3, 2.0 / 3};
    return {0.34, 1.56, 0.64, 1};   // a spring passes its end, as this does
}

std::vector<Point> plotted(const TimingCurve& curve, int count) {
    std::vector<Point> points;
    for (int i = 0; i < count; ++i) {
        const double time = count > 1 ? double(i) / (count - 1) : 0;
        points.push_back({time, KineticMath::evaluate(curve, time, 1).value});
    }
    return points;
}

}   // namespace EaseEditing

}   // namespace tavix
