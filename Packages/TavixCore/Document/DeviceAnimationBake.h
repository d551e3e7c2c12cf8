// Named animations of devices become keyframes while a composition is read. What the names mean is told by
// the floor above, which defines this function: a document knows that it happens, not how.
#pragma once

namespace tavix {

struct CompositionSpec;

// No name of a device animation outlives it. A formation comes before the motions: its layers have motions of
// their own.
void bakeDeviceAnimations(CompositionSpec& spec);

}   // namespace tavix
