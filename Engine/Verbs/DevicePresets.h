// The named motions and formations of devices, as `presets` lists them and plays them out.
#pragma once

#include "Engine/Verbs/Preset.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

class Arguments;

// How a motion or a formation is played. Values are held within the ranges of documents.
class DevicePlayArguments {
public:
    void declare(Arguments& arguments);
    // As the object `params` of a document. Throws `UsageError` for one that this family has no use for.
    Json params(std::string_view family) const;
    bool isEmpty() const;

private:
    std::vector<std::optional<double>> numbers_;   // in the order of the table in the source
    std::optional<int> count_;
    std::optional<std::string> direction_;
};

namespace DevicePresets {

inline constexpr std::string_view motionFamily = "motions", formationFamily = "formations";

std::vector<Preset> motions();
std::vector<Preset> formations();

// All that a named one becomes in a document. Throws `UsageError` for an unknown name.
Json expandedMotion(const std::string& name, const DevicePlayArguments& arguments);
Json expandedFormation(const std::string& name, const DevicePlayArguments& arguments);

}   // namespace DevicePresets

}   // namespace tavix::engine
