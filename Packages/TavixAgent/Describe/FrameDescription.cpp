#include "TavixAgent/Describe/FrameDescription.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<LineDescription>& fieldsOf(std::type_identity<LineDescription>) {
    using R = LineDescription;
    static const Fields<R> table{"LineDescription",
        {field<&R::text>("text", "The line as it reads."),
            field<&R::box>("box", "Where it stands: as wide as it is set, as tall as its font.")}};
    return table;
}

const Fields<LayerDescription>& fieldsOf(std::type_identity<LayerDescription>) {
    using R = LayerDescription;
    static const Fields<R> table{"LayerDescription",
        {field<&R::path>("path", "JSON Pointer in the document as it is written.").required(),
            field<&R::id>("id", "The layer's own name."), field<&R::kind>("kind", "What it shows."),
            field<&R::box>("box", "All of its ink after all motion, in pixels from the top left."),
            field<&R::insideFraction>("insideFraction", "The share of its area within the frame."),
            field<&R::hiddenFraction>("hiddenFraction", "The share of that under opaque layers.")
                .unlessDefault(),
            field<&R::hiddenBy>("hiddenBy", "The layer that hides most of it."),
            field<&R::opacity>("opacity", "Of its most visible part."),
            field<&R::moves>("moves", "Whether it is elsewhere in the next frame."),
            field<&R::sinceSec>("sinceSec", "Since when it moves or rests like this."),
            field<&R::untilSec>("untilSec", "When that changes next."),
            field<&R::lines>("lines", "Of a text, from the top.").unlessDefault(),
            field<&R::fonts>("fonts", "The fonts that really draw the text.").unlessDefault(),
            field<&R::contrast>("contrast",
                "To 1, of a text against what lies under it; absent where only a picture lies there.")}};
    return table;
}

const Fields<SceneDescription>& fieldsOf(std::type_identity<SceneDescription>) {
    using R = SceneDescription;
    static const Fields<R> table{"SceneDescription",
        {field<&R::path>("path", "JSON Pointer of the scene.").required(),
            field<&R::name>("name", "Its id, or its place."),
            field<&R::localSec>("localSec", "The time on its own clock."),
            field<&R::durationSec>("durationSec", "How long it is."),
            field<&R::layers>("layers", "The layers that show, from back to front."),
            field<&R::absent>("absent", "The layers that do not show now.").unlessDefault()}};
    return table;
}

const Fields<BeatDescription>& fieldsOf(std::type_identity<BeatDescription>) {
    using R = BeatDescription;
    static const Fields<R> table{
        "BeatDescription", {field<&R::bpm>("bpm", "Beats a minute."),
                               field<&R::beat>("beat", "How many beats have passed since the first."),
                               field<&R::nearestSec>("nearestSec", "The time of the nearest beat.")}};
    return table;
}

const Fields<SoundDescription>& fieldsOf(std::type_identity<SoundDescription>) {
    using R = SoundDescription;
    static const Fields<R> table{"SoundDescription",
        {field<&R::path>("path", "JSON Pointer of the cue."), field<&R::sound>("sound", "What is heard."),
            field<&R::atSec>("atSec", "When it begins.")}};
    return table;
}

const Fields<FrameDescription>& fieldsOf(std::type_identity<FrameDescription>) {
    using R = FrameDescription;
    static const Fields<R> table{"FrameDescription",
        {field<&R::atSec>("atSec", "The time on the clock of the film.").required(),
            field<&R::filmSec>("filmSec", "How long the film is."),
            field<&R::widthPx>("widthPx", "The width of the frame."),
            field<&R::heightPx>("heightPx", "The height of the frame."),
            field<&R::scenes>("scenes",
                "What is shown; two while a transition runs. Boxes are those before the transition moves the scenes."),
            field<&R::transition>("transition", "The style of the transition that runs."),
            field<&R::transitionProgress>("transitionProgress", "From 0 to 1."),
            field<&R::music>("music", "The music that plays."),
            field<&R::musicSec>("musicSec", "Where in its file the music is."),
            field<&R::beat>("beat", "Where this time lies between the beats."),
            field<&R::sounds>("sounds", "Sounds within half a second.").unlessDefault()}};
    return table;
}

const Fields<HappeningDescription>& fieldsOf(std::type_identity<HappeningDescription>) {
    using R = HappeningDescription;
    static const Fields<R> table{"HappeningDescription",
        {field<&R::fromSec>("fromSec", "When it begins, on the clock of the film.").required(),
            field<&R::toSec>("toSec", "When it ends."),
            field<&R::what>("what", "One of cut, transition, enters, moves, rests, leaves, sound."),
            field<&R::path>("path", "JSON Pointer of what does it."),
            field<&R::name>("name", "What that is called."),
            field<&R::box>("box", "Of a layer, where it is at the end.").unlessDefault()}};
    return table;
}

const Fields<RangeDescription>& fieldsOf(std::type_identity<RangeDescription>) {
    using R = RangeDescription;
    static const Fields<R> table{"RangeDescription",
        {field<&R::fromSec>("fromSec", "The first moment.").required(),
            field<&R::toSec>("toSec", "The last moment."),
            field<&R::filmSec>("filmSec", "How long the film is."),
            field<&R::stepSec>("stepSec", "How closely it was looked; times are exact to this."),
            field<&R::happenings>("happenings", "What happens, in order.")}};
    return table;
}

}   // namespace tavix
