// What a render says while it works: its log goes to a person, its warnings to whoever reads the result.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixRender/Assets/RenderLog.h"

#include <string>

namespace tavix::engine {

class Terminal;

// Must outlive the log that it gives.
class RenderNotes {
public:
    explicit RenderNotes(Terminal& terminal) : terminal_(terminal) {}

    RenderLog log();
    void warn(const std::string& sentence);
    const JsonArray& warnings() const { return warnings_; }

private:
    void take(const std::string& line);

    Terminal& terminal_;
    JsonArray warnings_;
};

}   // namespace tavix::engine
