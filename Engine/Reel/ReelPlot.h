// A reel as a picture: its steps, the zoom and the centre of its camera, cuts, paces, cards and captions,
// over the time of the finished film.
#pragma once

#include "Engine/Reel/ReelStory.h"
#include "TavixPlatform/Imaging/Bitmap.h"

namespace tavix::engine {

imaging::Bitmap plotOf(const ReelStory& story);

}   // namespace tavix::engine
