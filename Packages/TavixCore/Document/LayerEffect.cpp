#include "TavixCore/Document/LayerEffect.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<BlurEffect>& fieldsOf(std::type_identity<BlurEffect>) {
    static const Fields<BlurEffect> table{
        "BlurEffect", {field<&BlurEffect::radiusFraction>("radiusFraction", "Standard deviation of the blur.")
                              .measuredIn(Unit::canvasHeights)
                              .legal(0, 0.05)}};
    return table;
}

const Fields<ColorControlsEffect>& fieldsOf(std::type_identity<ColorControlsEffect>) {
    static const Fields<ColorControlsEffect> table{"ColorControlsEffect",
        {field<&ColorControlsEffect::brightness>("brightness", "Added to every channel.")
                .measuredIn(Unit::fraction)
                .legal(-0.5, 0.5),
            field<&ColorControlsEffect::contrast>(
                "contrast", "Spread about the middle grey; 1 changes nothing.")
                .measuredIn(Unit::times)
                .legal(0.25, 4),
            field<&ColorControlsEffect::saturation>("saturation", "0 is grey, 1 changes nothing.")
                .measuredIn(Unit::times)
                .legal(0, 3)}};
    return table;
}

const Fields<TintEffect>& fieldsOf(std::type_identity<TintEffect>) {
    static const Fields<TintEffect> table{"TintEffect",
        {field<&TintEffect::color>("color", "The colour it is drawn towards."),
            field<&TintEffect::intensity>("intensity", "How far it goes: 0 not at all, 1 wholly.")
                .measuredIn(Unit::fraction)
                .legal(0, 1)}};
    return table;
}

const Fields<DuotoneEffect>& fieldsOf(std::type_identity<DuotoneEffect>) {
    static const Fields<DuotoneEffect> table{"DuotoneEffect",
        {field<&DuotoneEffect::shadow>("shadow", "The colour of the dark parts."),
            field<&DuotoneEffect::highlight>("highlight", "The colour of the light parts.")}};
    return table;
}

const Fields<VignetteEffect>& fieldsOf(std::type_identity<VignetteEffect>) {
    static const Fields<VignetteEffect> table{"VignetteEffect",
        {field<&VignetteEffect::intensity>(
             "intensity", "How dark the edge gets; 1 is black in the corners at a radius of 1.")
                .measuredIn(Unit::fraction)
                .legal(0, 2),
            field<&VignetteEffect::radius>(
                "radius", "Where the full darkness lies, in half diagonals from the middle.")
                .legal(0, 3)}};
    return table;
}

const Fields<GlowEffect>& fieldsOf(std::type_identity<GlowEffect>) {
    static const Fields<GlowEffect> table{
        "GlowEffect", {field<&GlowEffect::intensity>("intensity", "How bright the glow is.")
                              .measuredIn(Unit::fraction)
                              .legal(0, 1.5),
                          field<&GlowEffect::radiusFraction>(
                              "radiusFraction", "How wide the glow is: its standard deviation.")
                              .measuredIn(Unit::canvasHeights)
                              .legal(0, 0.03)}};
    return table;
}

const Fields<NoiseEffect>& fieldsOf(std::type_identity<NoiseEffect>) {
    static const Fields<NoiseEffect> table{"NoiseEffect",
        {field<&NoiseEffect::amount>("amount", "How strong the grain is.")
                .measuredIn(Unit::fraction)
                .legal(0, 0.3),
            field<&NoiseEffect::seed>("seed", "Which grain; the same seed gives the same.").unlessDefault()}};
    return table;
}

const Fields<PixelateEffect>& fieldsOf(std::type_identity<PixelateEffect>) {
    static const Fields<PixelateEffect> table{
        "PixelateEffect", {field<&PixelateEffect::scaleFraction>("scaleFraction", "The side of a square.")
                                  .measuredIn(Unit::canvasHeights)
                                  .legal(0.001, 0.1)}};
    return table;
}

const Fields<ChromaticAberrationEffect>& fieldsOf(std::type_identity<ChromaticAberrationEffect>) {
    static const Fields<ChromaticAberrationEffect> table{
        "ChromaticAberrationEffect", {field<&ChromaticAberrationEffect::offsetFraction>("offsetFraction",
                                         "How far red goes to one side and blue to the other.")
                                             .measuredIn(Unit::canvasHeights)
                                             .legal(0, 0.01)}};
    return table;
}

const Fields<UnknownEffect>& fieldsOf(std::type_identity<UnknownEffect>) {
    static const Fields<UnknownEffect> table{
        "UnknownEffect", {field<&UnknownEffect::kind>("kind", "What it was called.")}};
    return table;
}

const Alternatives<LayerEffect>& alternativesOf(std::type_identity<LayerEffect>) {
    static const Alternatives<LayerEffect> table{.name = "LayerEffect",
        .noun = "effect kind",
        .rows = {flat<LayerEffect, BlurEffect>("blur"),
            flat<LayerEffect, ColorControlsEffect>("colorControls"), flat<LayerEffect, TintEffect>("tint"),
            flat<LayerEffect, DuotoneEffect>("duotone"), flat<LayerEffect, VignetteEffect>("vignette"),
            flat<LayerEffect, GlowEffect>("glow"), flat<LayerEffect, NoiseEffect>("noise"),
            flat<LayerEffect, PixelateEffect>("pixelate"),
            flat<LayerEffect, ChromaticAberrationEffect>("chromaticAberration"),
            flat<LayerEffect, UnknownEffect>("")},
        .fallbackTag = ""};
    return table;
}

const std::vector<std::string_view>& effectKinds() {
    static const std::vector<std::string_view> kinds = allTags<LayerEffect>();
    return kinds;
}

std::string_view kindName(const LayerEffect& effect) {
    if (const auto* unknown = std::get_if<UnknownEffect>(&effect)) return unknown->kind;
    return alternativeOf(effect).tag;
}

std::vector<EffectParam> params(const LayerEffect& effect) {
    std::vector<EffectParam> numbers;
    const Alternative& held = alternativeOf(effect);
    const auto& type = static_cast<const RecordType&>(held.type());
    const void* const record = held.held(const_cast<LayerEffect*>(&effect));
    for (const Field& row : type.rows)
        if (const auto number = numberIn(row.type(), row.in(record))) numbers.push_back({row.key, *number});
    return numbers;
}

std::vector<EffectRange> legalRanges(std::string_view kind) {
    std::vector<EffectRange> ranges;
    const Alternative* const known = alternativesOf(std::type_identity<LayerEffect>{}).type.find(kind);
    if (!known) return ranges;
    for (const Field& row : static_cast<const RecordType&>(known->type()).rows)
        if (row.bounds) ranges.push_back({row.key, row.bounds->least, row.bounds->most});
    return ranges;
}

}   // namespace tavix
