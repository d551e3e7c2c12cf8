// Turns the times in beats of a document into seconds, wherever a row has the role of one.
#pragma once

#include "TavixCore/Document/BeatGrid.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Paths/RowFilter.h"
#include "TavixCore/Paths/Walk.h"

#include <vector>

namespace tavix::CompositionBeats {

class BeatResolver {
public:
    explicit BeatResolver(BeatGrid grid) : grid_(grid) {}

    void resolveLengths(const Type& type, void* document);
    // `sceneStartSec`: of the scenes in the order in which they stand in the document, on the global clock.
    void resolveMoments(const Type& type, void* document, std::vector<double> sceneStartSec);

    std::vector<CompositionLint::Finding> findings() && { return std::move(report_).findings(); }

    Walk operator()(const MutablePlace& place);

private:
    Walk inside(const MutablePlace& place, CompositionScene* scene, CompositionLayer* layer);
    void resolve(const MutablePlace& place, double beats);
    void resolveLength(const MutablePlace& place, double beats);
    void resolveSceneLength(const MutablePlace& place, double beats);
    void resolveStart(const MutablePlace& place, double beat);
    void resolveEnd(const MutablePlace& place, double beat);
    void resolveMoment(const MutablePlace& place, double beat);
    double sceneStartSec() const;
    double sceneTime(double beat) const;

    BeatGrid grid_;
    const RowFilter* filter_ = nullptr;   // of the walk
    bool wantsLengths_ = false;
    std::vector<double> startsSec_;
    std::size_t sceneCount_ = 0;          // of the scenes that the walk has reached
    CompositionScene* scene_ = nullptr;   // that the walk is in
    CompositionLayer* layer_ = nullptr;
    CompositionLint::LintReport report_;
};

}   // namespace tavix::CompositionBeats
