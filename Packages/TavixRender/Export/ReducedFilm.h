// A film in another size: its frames are drawn as they are and scaled.
#pragma once

#include "TavixRender/Export/PiecedFilm.h"

namespace tavix {

// Both sides at least 1.
PiecedFilm reducedFilm(const PiecedFilm& film, imaging::Size size);

}   // namespace tavix
