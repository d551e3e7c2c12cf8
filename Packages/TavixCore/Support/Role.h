// What the value of a row is to those who walk a document without knowing its records.
#pragma once

namespace tavix {

enum class Role {
    none,
    // Times in beats of the music. Each becomes seconds in the row that it names as its partner.
    beatLength,   // a length
    beatStart,    // of a layer, on the clock of the film
    beatEnd,      // likewise; the partner is the length
    beatMoment,   // inside of a layer its partner counts from the layer's start, elsewhere from the film's
    // Times by a mark of a recording, likewise.
    markStart,
    markEnd,
    markMoment,   // without a clip of its own the only recording of the scene is meant
    markTrim,     // of the recording beside it: where it starts
    // Files, relative to the asset root.
    picture,
    clip,
    recording,   // a clip whose marks stand in a file beside it
    reelFolder,
    soundFile,
    sound,      // a sound of the catalog, or a file
    fontFile,   // the name of a font, or a file
    font,       // a key of the document's fonts, a name, or a file
    fontPath,   // always a file
    // Names of the catalog; those that an enumeration lists are known by their type.
    device,
    background,
    textAnimation,
    // By which an author, a path and a finding speak of the thing; unlike those beside it.
    identifier,
    // Of a picture in output pixels, which grows with it.
    pixelPoint,
    pixelLength,
};

constexpr bool isInBeats(Role role) { return role >= Role::beatLength && role <= Role::beatMoment; }
constexpr bool isByMark(Role role) { return role >= Role::markStart && role <= Role::markTrim; }

}   // namespace tavix
