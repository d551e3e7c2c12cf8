// What the frames of a film show, drawn small and looked at one after another: flashes that can cause
// seizures, stretches that are black or stand still, texts that are hard to tell from the pictures under
// them.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixRender/Assets/RenderLog.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace tavix::FrameJudge {

struct Request {
    const CompositionSpec& spec;   // with its times in seconds
    std::optional<std::filesystem::path> assetRoot;
    RenderLog log = {};
    std::function<void(double fraction)> onProgress = {};   // 0 to 1
    std::stop_token stop = {};
};

// Every frame is drawn, within 384 x 288 pixels and at most 60 of them a second. Throws `RenderStopped` when
// it is asked to stop.
std::vector<CompositionLint::Finding> findings(const Request& request);

}   // namespace tavix::FrameJudge
