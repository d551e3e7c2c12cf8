#include "TavixBase/NearestWord.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/LintRules.h"
#include "TavixCore/Paths/RowFilter.h"
#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Support/FieldTables.h"

namespace tavix::CompositionLint {
namespace {

// The recordings that marks of a scene can belong to.
struct SceneDevices {
    std::size_t count = 0;
    std::vector<std::string_view> ids;   // of those that have one
};

SceneDevices devicesOf(const CompositionScene& scene) {
    SceneDevices devices;
    for (const CompositionLayer& layer : scene.layers) {
        if (!std::holds_alternative<DeviceContent>(layer.content)) continue;
        ++devices.count;
        if (layer.id) devices.ids.push_back(*layer.id);
    }
    return devices;
}

class MarkCheck {
public:
    MarkCheck(const SceneDevices& devices, LintReport& report) : devices_(devices), report_(report) {}

    void check(const CompositionScene& scene, const KeyPath& at) {
        walkValue(typeOf<CompositionScene>(), &scene, at, Visitor<Place>(*this), &rowsByMark());
    }

    // What is in a device means the device's own clip when it names none.
    Walk operator()(const Place& place) {
        if (const auto* layer = place.as<CompositionLayer>()) layerId_ = &layer->id;
        if (place.as<DeviceContent>() && !ownClip_) {
            ownClip_ = layerId_;
            walkValue(place.type, place.value, place.at, Visitor<Place>(*this), &rowsByMark());
            ownClip_ = nullptr;
            return Walk::over;
        }
        const auto* const reference = place.as<MarkRef>();
        if (!reference || !place.row || !isByMark(place.row->role)) return Walk::into;
        check(*reference, place.at);
        return Walk::over;
    }

private:
    static const RowFilter& rowsByMark() {
        static const RowFilter filter(typeOf<CompositionScene>(), isByMark);
        return filter;
    }

    void check(const MarkRef& reference, const KeyPath& at) const {
        if (reference.mark.empty())
            report_.tell(Rule::markUnnamed, at, "Mark reference has an empty mark name.");
        if (reference.clip)
            clipIsADevice(*reference.clip, at);
        else if (ownClip_ && *ownClip_)
            clipIsADevice(**ownClip_, at);
        else
            deviceIsPlain(at);
    }

    void clipIsADevice(std::string_view clip, const KeyPath& at) const {
        for (const std::string_view id : devices_.ids)
            if (id == clip) return;
        const std::string known =
            devices_.ids.empty() ? "" : worded(" (device ids: {})", {listed(devices_.ids)});
        report_.tell(Rule::markDevice, at,
            worded("clip \"{}\" doesn't match any device layer id in this scene{}.", {clip, known}),
            didYouMean(clip, devices_.ids));
    }

    void deviceIsPlain(const KeyPath& at) const {
        if (devices_.count == 0)
            report_.tell(Rule::markDevice, at,
                "Mark references need a device layer (with a video screen) in the same scene — this scene has none.");
        if (devices_.count > 1)
            report_.tell(Rule::markDevice, at,
                worded(
                    "This scene has {} device layers — set \"clip\" on the mark reference to pick one (device ids: {}).",
                    {static_cast<double>(devices_.count), listed(devices_.ids)}));
    }

    const SceneDevices& devices_;
    const std::optional<std::string>* layerId_ = nullptr;   // of the layer that the walk is in
    const std::optional<std::string>* ownClip_ = nullptr;   // of the device that it is in
    LintReport& report_;
};

}   // namespace

void checkMarks(const SceneScope& scope, LintReport& report) {
    const SceneDevices devices = devicesOf(scope.scene());
    MarkCheck(devices, report).check(scope.scene(), scope.at);
}

}   // namespace tavix::CompositionLint
