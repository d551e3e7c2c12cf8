// What a number of a row counts: for the reference, and for the controls of an editor.
#pragma once

#include <string_view>

namespace tavix {

enum class Unit {
    none,
    seconds,
    milliseconds,
    beats,
    beatsPerMinute,
    hertz,
    pixels,   // of the output
    degrees,
    canvasHeights,   // shares of the canvas height, across as well as down
    canvasWidths,
    canvasSides,    // across of its width, down of its height
    shorterSides,   // of the thing itself
    ownSides,       // of the thing itself, across of its width, down of its height
    ems,            // of the text's size
    fraction,       // 0 is nothing, 1 is all
    times,          // a factor; 1 changes nothing
    decibels,
};

// As the reference writes it behind a number; empty for `none`.
std::string_view symbolOf(Unit unit);
// What one press of a control's arrow adds; a tenth of it or ten times as much is for keys held with it.
double stepOf(Unit unit);

}   // namespace tavix
