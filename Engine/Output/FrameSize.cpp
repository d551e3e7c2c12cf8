#include "Engine/Output/FrameSize.h"

#include "Engine/System/Errors.h"

#include <algorithm>
#include <cstdio>

namespace tavix::engine {

imaging::Size sizeNamed(const std::string& text, int leastPx, int mostPx, const std::string& option) {
    imaging::Size size;
    char cross = 0, more = 0;
    if (std::sscanf(text.c_str(), "%d%c%d%c", &size.width, &cross, &size.height, &more) == 3 &&
        cross == 'x' && std::min(size.width, size.height) >= leastPx &&
        std::max(size.width, size.height) <= mostPx)
        return size;
    throw UsageError(option + " takes a width and a height from " + std::to_string(leastPx) + " to " +
                     std::to_string(mostPx) + ", as in 1080x1920, not \"" + text + "\".");
}

}   // namespace tavix::engine
