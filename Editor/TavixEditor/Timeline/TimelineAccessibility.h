// Bars are drawn, not widgets: this tells screen readers and test tools of them, one list item each.
#pragma once

namespace tavix::editor {

void installTimelineAccessibility();   // once is enough; later calls do nothing

}   // namespace tavix::editor
