// Where a render tells what it does: one finished line a call, without a line break.
#pragma once

#include <functional>
#include <string>

namespace tavix {

using RenderLog = std::function<void(const std::string& line)>;

}   // namespace tavix
