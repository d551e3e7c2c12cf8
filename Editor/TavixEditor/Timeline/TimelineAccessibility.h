// Tells screen readers what stands on the timeline: the playhead, scenes, layers, keyframes, sounds.
#pragma once

namespace tavix::editor {

class TimelineCanvas;

void tellTimeline(TimelineCanvas* canvas);

}   // namespace tavix::editor
