// Where a render tells what it does: one finished line a call, without a line break.
#pragma once

#include <functional>
#include <string>

namespace tavix {

using RenderLog = std::function<void(const std::string& line)>;

// The same log, told no line twice: what several layers lack is named once. Used by one thread at a time.
RenderLog onceEach(RenderLog log);

}   // namespace tavix
