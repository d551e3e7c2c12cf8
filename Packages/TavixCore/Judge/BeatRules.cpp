#include "TavixCore/Judge/LintRules.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/TimedRows.h"

namespace tavix::CompositionLint {
namespace {

constexpr double slowestBpm = 40, fastestBpm = 220;

// A time in beats needs a grid, and no second clock beside it.
class BeatCheck {
public:
    BeatCheck(bool hasGrid, LintReport& report) : hasGrid_(hasGrid), report_(report) {}

    // Lengths and moments are judged one after the other, each in the order of the document.
    void check(const CompositionScene& scene, const KeyPath& at) {
        static const RowFilter lengths(typeOf<CompositionScene>(), isLength);
        static const RowFilter moments(typeOf<CompositionScene>(), isMoment);
        for (const bool wantsLengths : {true, false}) {
            const auto visit = [&](const Place& place) {
                const Role role = place.row ? place.row->role : Role::none;
                if (wantsLengths ? isLength(role) : isMoment(role)) check(place);
                return isInBeats(role) ? Walk::over : Walk::into;
            };
            walkValue(typeOf<CompositionScene>(), &scene, at, Visitor<Place>(visit),
                wantsLengths ? &lengths : &moments);
        }
    }

private:
    void check(const Place& place) {
        const Field& row = *place.row;
        if (!hasGrid_)
            report_.tell(Rule::beatGrid, place.at,
                worded("{} needs a beat grid — the composition declares no audio.music.bpm.", {row.key}),
                "Set audio.music.bpm (+ firstBeatSec) — run `tavix beats <audio>` to measure them.");
        if (row.role == Role::beatLength) {
            if (partnerOf(place) > 0)
                report_.tell(Rule::twoClocks, place.at,
                    worded("{} and {} both set — pick one duration authority.", {row.partner, row.key}));
        } else if (const Field* other = besideAs(place, byMark(row.role))) {
            const bool isLayer = place.ownerAs<CompositionLayer>();
            report_.tell(Rule::twoClocks, place.at,
                worded("{} and {} on the same {} — pick one clock{}.",
                    {row.key, other->key, isLayer ? "layer" : "keyframe",
                        row.role == Role::beatStart ? " for the start"
                        : row.role == Role::beatEnd ? " for the end"
                                                    : ""}));
        }
    }

    static bool isLength(Role role) { return role == Role::beatLength; }
    static bool isMoment(Role role) { return isInBeats(role) && !isLength(role); }
    static Role byMark(Role inBeats) {
        return inBeats == Role::beatStart ? Role::markStart
               : inBeats == Role::beatEnd ? Role::markEnd
                                          : Role::markMoment;
    }

    bool hasGrid_;
    LintReport& report_;
};

std::optional<double> bpmOf(const CompositionSpec& spec) {
    return spec.audio && spec.audio->music ? spec.audio->music->bpm : std::nullopt;
}

}   // namespace

void checkBeats(const SceneScope& scope, LintReport& report) {
    const KeyPath root, audioAt(root, "audio"), musicAt(audioAt, "music");
    const std::optional<double> bpm = bpmOf(scope.spec);
    if (bpm && !(*bpm >= slowestBpm && *bpm <= fastestBpm))
        report.tell(Rule::bpmRange, KeyPath(musicAt, "bpm"), worded("bpm {} out of range (40…220).", {*bpm}));

    BeatCheck(bpm && *bpm > 0, report).check(scope.scene(), scope.at);
}

}   // namespace tavix::CompositionLint
