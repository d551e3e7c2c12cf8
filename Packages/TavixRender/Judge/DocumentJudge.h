// What is told of a document without drawing its frames: by the command, and by an editor while it is edited.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Judge/Muting.h"
#include "TavixCore/Support/Json.h"

#include <vector>

namespace tavix::DocumentJudge {

struct Extent {
    bool rules = true;      // the document itself, its files and what the eye would see; else only its times
    bool footage = false;   // films that end too early, whose heads are read
};

struct Judged {
    std::vector<CompositionLint::Finding> findings;   // at the paths that the author wrote
    CompositionSpec spec;                             // its times in seconds, where they can be found
};

// `read` is what `written` was read as. Opens the heads of files; draws nothing.
Judged judge(
    CompositionSpec read, const Json& written, const CompositionRoad::AssetRoot& assetRoot, Extent extent);

// The codes that the document mutes, with their places.
std::vector<CompositionLint::MutedCode> mutedBy(const CompositionSpec& spec);

}   // namespace tavix::DocumentJudge
