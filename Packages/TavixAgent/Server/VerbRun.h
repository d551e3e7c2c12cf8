// Runs a verb of the command as a process of its own, so that whatever it meets costs only itself.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixPlatform/System/ProgramRun.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix {

struct VerbRequest {
    std::filesystem::path program;   // the command itself
    std::filesystem::path root;      // all that the verb reads and writes
    std::vector<std::string> words;
    std::string input = {};   // on its standard input
    double mostSec = 120;
    // Of lines as {"event": "progress", "fraction": 0.5, "stage": "picture"}.
    std::function<void(double fraction, const std::string& stage)> onProgress = {};
};

struct VerbOutcome : system::ProgramOutcome {
    // The last JSON value of the output, when there is one.
    std::optional<Json> json() const;
    // What went wrong, as a finished sentence.
    std::string complaint() const;
};

// Blocks until the verb has ended. A stop ends it with all that it started, and its unfinished files with it.
// Throws std::system_error when it cannot be started.
VerbOutcome runVerb(const VerbRequest& request, const std::stop_token& stop = {});

}   // namespace tavix
