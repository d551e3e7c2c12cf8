// Captions and dead air: a line that is to be read is not hurried through.
#pragma once

namespace tavix {

struct EffectsSpec;

namespace CaptionPace {

// Takes the time of every caption out of what is cut and of what is played faster. What is left of a gap on
// either side is shortened as before, when it is long enough to be worth it.
void keepUnderCaptions(EffectsSpec& spec);

}   // namespace CaptionPace

}   // namespace tavix
