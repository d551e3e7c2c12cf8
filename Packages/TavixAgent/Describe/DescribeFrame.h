// Tells a moment or a stretch of a film without drawing it.
#pragma once

#include "TavixAgent/Describe/FrameDescription.h"
#include "TavixAgent/Document/OpenFilm.h"

namespace tavix {

// Of a time from 0 to the film's length.
FrameDescription describeFrame(const OpenFilm& film, double atSec);

// Throws `UsageError` for a range that is none of the film's. Long ranges are looked at more coarsely.
RangeDescription describeRange(const OpenFilm& film, double fromSec, double toSec);

// For reading: a page at most, and what did not fit is counted.
std::string textOf(const FrameDescription& frame);
std::string textOf(const RangeDescription& range);

}   // namespace tavix
