#include "TavixRender/Judge/DocumentJudge.h"

#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixCore/Judge/IgnoredBesideMotion.h"
#include "TavixCore/Judge/PassedOver.h"
#include "TavixCore/Judge/WithoutEffect.h"
#include "TavixRender/Composition2D/CompositionFootageAudit.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace tavix::DocumentJudge {

namespace {

using Findings = std::vector<CompositionLint::Finding>;

void append(Findings& all, Findings more) { std::ranges::move(more, std::back_inserter(all)); }

// What only the written document tells: reading it has passed over it.
Findings writtenInVain(const Json& written) {
    Findings found = CompositionLint::passedOver(written);
    append(found, CompositionLint::ignoredBesideMotion(written));
    append(found, CompositionLint::withoutEffect(written));
    return found;
}

// Where the times of a document are in doubt, so is all that is seen.
Findings beyondRules(const CompositionRoad::Arrival& arrival, const Json& written,
    const CompositionRoad::AssetRoot& assetRoot) {
    FilmAssets assets(assetRoot);
    Findings seen = FilmJudge::missingFiles(arrival.spec, assets);
    if (arrival.isResolved()) append(seen, FilmJudge::seen(CompositionGeometry(arrival.spec, assets)));
    Findings found = writtenInVain(written);
    append(found, CompositionLint::atAuthoredPaths(std::move(seen), arrival.spec));
    return found;
}

}   // namespace

Judged judge(
    CompositionSpec read, const Json& written, const CompositionRoad::AssetRoot& assetRoot, Extent extent) {
    CompositionRoad::Arrival arrival = CompositionRoad::judge(std::move(read), assetRoot);
    Judged judged{extent.rules ? arrival.findings() : arrival.resolving, {}};
    if (extent.rules) append(judged.findings, beyondRules(arrival, written, assetRoot));
    if (extent.footage && arrival.isResolved())
        append(judged.findings, CompositionFootageAudit::findings(arrival.spec, assetRoot));
    judged.spec = std::move(arrival.spec);
    return judged;
}

std::vector<CompositionLint::MutedCode> mutedBy(const CompositionSpec& spec) {
    std::vector<CompositionLint::MutedCode> muted;
    if (!spec.lint) return muted;
    for (std::size_t i = 0; i < spec.lint->mute.size(); ++i)
        muted.push_back({spec.lint->mute[i], "lint.mute[" + std::to_string(i) + "]"});
    return muted;
}

}   // namespace tavix::DocumentJudge
