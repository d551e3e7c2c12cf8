// How one preset is played: the options of `presets` that go with a name.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::engine {

class Arguments;

namespace PresetFamily {
inline constexpr std::string_view motions = "motions", formations = "formations", kinetic = "kinetic";
}   // namespace PresetFamily

// Values are held within the ranges of documents. What a family has no use for is a `UsageError`.
class PlayArguments {
public:
    void declare(Arguments& arguments);
    bool isEmpty() const;

    // As the object `params` of a motion or a formation.
    Json deviceParams(std::string_view family) const;
    // Looks at this object's text.
    KineticPresetCatalog::Request kineticRequest(std::string_view presetID) const;

private:
    void requireUse(std::string_view family) const;

    std::vector<std::optional<double>> numbers_;   // in the order of the table in the source
    std::optional<int> count_, seed_;
    std::optional<std::string> direction_, intensity_, text_;
    std::optional<KineticSpeed> speed_;
    std::optional<KineticWeight> weight_;
};

}   // namespace tavix::engine
