// Room for captions below the device of an upright reel, where they would lie over its lower edge.
#pragma once

namespace tavix {

struct EffectsSpec;

namespace CaptionRoom {

// Stands the device back so far that a line of text has room below it. Before captions get to move, since
// their places go by the device's.
void makeBelow(EffectsSpec& spec);

// Puts the moving captions without a place of their own into the middle of that room, where they fit.
void seatBelow(EffectsSpec& spec);

}   // namespace CaptionRoom

}   // namespace tavix
