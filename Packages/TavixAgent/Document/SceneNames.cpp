#include "TavixAgent/Document/SceneNames.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixBase/NearestWord.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tavix {

std::size_t sceneNamed(const CompositionSpec& spec, const std::string& name) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) names.push_back(spec.scenes[i].displayName(i));
    if (const auto found = std::ranges::find(names, name); found != names.end())
        return static_cast<std::size_t>(found - names.begin());
    const std::vector<std::string_view> known(names.begin(), names.end());
    const auto meant = didYouMean(name, known);
    throw UsageError("There is no scene \"" + name + "\"; the document has " +
                     CompositionLint::listed(known) + "." + (meant ? " " + *meant : ""));
}

double momentOf(const CompositionSpec& spec, const MomentWish& wish) {
    if (wish.atSec.has_value() == wish.scene.has_value())
        throw UsageError("Say which moment: either --at SEC, or --scene ID with --local SEC.");
    if (wish.atSec && wish.localSec) throw UsageError("--local goes with --scene, and not with --at.");
    const CompositionTimeline timeline(spec);
    const double atSec = wish.atSec
                             ? *wish.atSec
                             : *timeline.globalTime(sceneNamed(spec, *wish.scene), wish.localSec.value_or(0));
    if (!(atSec >= 0 && atSec <= timeline.totalSec))
        throw UsageError("There is no picture at " + twoDecimals(atSec) + " s; the film runs from 0 to " +
                         twoDecimals(timeline.totalSec) + " s.");
    return atSec;
}

}   // namespace tavix
