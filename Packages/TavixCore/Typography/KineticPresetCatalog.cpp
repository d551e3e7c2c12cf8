#include "TavixCore/Typography/KineticPresetCatalog.h"

#include "TavixCore/Values/TextWords.h"

#include <algorithm>

namespace tavix::KineticPresetCatalog {

namespace {

// The far end of a phase at medium intensity.
struct FarEnd {
    double opacity = 0;
    NormalizedVec2 offset{};
    double scale = 1;
    double blurRadiusFraction = 0;
    double trackingEm = 0;
    double motionBlur = 0;
};

enum class Extra { none, accentTint, dimStart, idle };

// Times are those at smooth speed.
struct Base {
    AnimationScope scope;
    double inSec, outSec, staggerSec;
    FarEnd in, out;
    KineticWeight weight;
    Extra extra = Extra::none;
    TimingCurve outCurve = BezierCurve{0.55, 0, 1, 0.45};
    ClipMask clip = ClipMask::none;
};

// In the order of `presets`.
constexpr std::array<Base, presets.size()> bases = [] {
    using enum AnimationScope;
    using enum KineticWeight;
    const auto slide = [](NormalizedVec2 in, NormalizedVec2 out) {
        return Base{block, 0.5, 0.38, 0, {.offset = in}, {.offset = out}, elegant};
    };
    return std::array<Base, presets.size()>{{
        {word, 0.28, 0.22, 0.09, {.offset = {0, -0.014}, .scale = 0.62},
            {.offset = {0, 0.008}, .scale = 0.92}, punchy, Extra::accentTint},
        {line, 0.5, 0.38, 0.14, {.opacity = 1, .offset = {0, 0.042}}, {.opacity = 1, .offset = {0, -0.042}},
            elegant, Extra::none, BezierCurve{0.7, 0, 0.84, 0}, ClipMask::line},
        {block, 0.6, 0.45, 0, {.scale = 1.04, .blurRadiusFraction = 0.022},
            {.scale = 1.02, .blurRadiusFraction = 0.014}, elegant, Extra::accentTint},
        {character, 0.22, 0.3, 0.055, {.blurRadiusFraction = 0.012}, {}, elegant, Extra::accentTint},
        {block, 0.7, 0.5, 0, {.blurRadiusFraction = 0.008, .trackingEm = 0.35}, {.trackingEm = 0.18},
            elegant},
        {block, 0.3, 0.2, 0, {.scale = 1.85, .motionBlur = 0.6}, {.scale = 1.12}, punchy, Extra::idle},
        {block, 0.55, 0.4, 0, {.offset = {0, 0.03}}, {.offset = {0, -0.02}}, elegant},
        {word, 0.22, 0.3, 0.1, {.opacity = 1}, {.offset = {0, -0.01}}, linear, Extra::dimStart},
        slide({0, 0.05}, {0, -0.03}),
        slide({0, -0.05}, {0, 0.03}),
        slide({0.06, 0}, {-0.04, 0}),
        slide({-0.06, 0}, {0.04, 0}),
        {block, 0, 0, 0, {.opacity = 1}, {.opacity = 1}, linear, Extra::none, LinearCurve{}},
    }};
}();

constexpr std::string_view fallbackID = "fade-up";
constexpr std::size_t mostCascadingCharacters = 14, mostMovingWords = 5;
constexpr RGBAColor dimmed{1, 1, 1, 0.42};
constexpr double tintTowardsWhite = 0.45;
constexpr double punchyDamping = 0.62;
constexpr BezierCurve elegantCurve{0.16, 1, 0.3, 1};

const Base* baseOf(std::string_view id) {
    const auto entry = std::ranges::find(presets, id, &Entry::id);
    return entry == presets.end() ? nullptr : &bases[std::size_t(entry - presets.begin())];
}

double timeFactor(KineticSpeed speed) {
    switch (speed) {
    case KineticSpeed::snap: return 0.65;
    case KineticSpeed::smooth: return 1;
    case KineticSpeed::glacial: return 1.6;
    }
    return 1;
}

double amountFactor(KineticIntensity intensity) {
    switch (intensity) {
    case KineticIntensity::low: return 0.6;
    case KineticIntensity::medium: return 1;
    case KineticIntensity::high: return 1.45;
    }
    return 1;
}

// Pieces that are too many to follow become larger ones.
AnimationScope scopeFor(AnimationScope scope, std::string_view text, std::vector<std::string>& notes) {
    if (scope == AnimationScope::character) {
        const std::size_t count = KineticMath::characters(text).size();
        if (count > mostCascadingCharacters) {
            notes.push_back("character→word (" + std::to_string(count) + " chars > " +
                            std::to_string(mostCascadingCharacters) + ")");
            scope = AnimationScope::word;
        }
    }
    if (scope == AnimationScope::word) {
        const std::size_t count = KineticMath::words(text).size();
        if (count > mostMovingWords) {
            notes.push_back(
                "word→line (" + std::to_string(count) + " words > " + std::to_string(mostMovingWords) + ")");
            scope = AnimationScope::line;
        }
    }
    return scope;
}

KineticPhase phaseOf(const FarEnd& end, double amount, ClipMask clip) {
    constexpr double mostOffset = 0.12, leastScale = 0.3, mostScale = 2.4, mostBlur = 0.05;
    KineticPhase phase;
    phase.opacity = end.opacity;
    phase.offset = {std::clamp(end.offset.x * amount, -mostOffset, mostOffset),
        std::clamp(end.offset.y * amount, -mostOffset, mostOffset)};
    phase.scale = std::clamp((end.scale - 1) * amount + 1, leastScale, mostScale);
    phase.trackingEm = end.trackingEm * amount;
    phase.blurRadiusFraction = std::clamp(end.blurRadiusFraction * amount, 0.0, mostBlur);
    phase.motionBlur = std::clamp(end.motionBlur * amount, 0.0, 1.0);
    phase.clipToBounds = clip;
    return phase;
}

// How long an entrance of that length takes and how it runs. A spring is given twice its response, so that it
// comes to rest in its time.
void setPace(KineticStyle& style, const Base& base, double inSec) {
    style.outPhase.curve = base.outCurve;
    style.inPhase.durationSec = inSec;
    switch (style.weight) {
    case KineticWeight::punchy:
        style.inPhase.durationSec = 2 * inSec;
        style.inPhase.curve = SpringCurve{inSec, punchyDamping};
        break;
    case KineticWeight::elegant: style.inPhase.curve = elegantCurve; break;
    case KineticWeight::linear: style.inPhase.curve = style.outPhase.curve = LinearCurve{}; break;
    }
}

Stagger staggerOf(double delaySec, double inSec, std::int64_t seed) {
    Stagger stagger{.seed = seed};
    if (!(delaySec > 0)) return stagger;
    stagger.delaySec = delaySec;
    stagger.overlap = inSec > 0 ? std::clamp(1 - delaySec / inSec, 0.0, 1.0) : 0;
    return stagger;
}

std::optional<RGBAColor> entranceColor(const Base& base, const Request& request) {
    if (base.extra == Extra::dimStart) return dimmed;
    if (base.extra != Extra::accentTint || request.preset.intensity != KineticIntensity::high ||
        !request.accent)
        return std::nullopt;
    const auto lighter = [](double channel) { return channel + (1 - channel) * tintTowardsWhite; };
    const RGBAColor& accent = *request.accent;
    return RGBAColor{lighter(accent.r), lighter(accent.g), lighter(accent.b), lighter(accent.a)};
}

}   // namespace

KineticWeight defaultWeight(std::string_view presetID) {
    const Base* base = baseOf(presetID);
    return base ? base->weight : baseOf(fallbackID)->weight;
}

Resolution resolve(const Request& request) {
    const KineticPresetRef& preset = request.preset;
    const Base* base = baseOf(preset.preset);
    if (!base) {
        Request known = request;
        known.preset.preset = fallbackID;
        Resolution resolution = resolve(known);
        resolution.notes.insert(
            resolution.notes.begin(), "unknown preset '" + preset.preset + "' → " + std::string(fallbackID));
        return resolution;
    }

    Resolution resolution;
    KineticStyle& style = resolution.style;
    const double time = timeFactor(preset.speed), amount = amountFactor(preset.intensity);
    style.presetID = preset.preset;
    style.speed = preset.speed;
    style.weight = preset.weight.value_or(base->weight);
    style.intensity = preset.intensity;
    style.scope = request.text ? scopeFor(base->scope, *request.text, resolution.notes) : base->scope;
    style.inPhase = phaseOf(base->in, amount, base->clip);
    style.outPhase = phaseOf(base->out, amount, base->clip);
    setPace(style, *base, base->inSec * time);
    style.outPhase.durationSec = base->outSec * time;
    style.stagger = staggerOf(base->staggerSec * time, style.inPhase.durationSec, request.seed);
    style.inPhase.color = entranceColor(*base, request);
    if (base->extra == Extra::idle && preset.intensity == KineticIntensity::high)
        style.idle = IdlePhase{IdlePhase::Target::position, 0.0025, 1.1, request.seed};
    return resolution;
}

}   // namespace tavix::KineticPresetCatalog
