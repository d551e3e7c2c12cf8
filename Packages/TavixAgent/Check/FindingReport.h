// Findings for whoever mends them: each with its code, its place as a JSON Pointer and, where it is certain,
// its repair; the most important first.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Paths/JsonPatch.h"

#include <span>
#include <vector>

namespace tavix {

// Errors first, then what harms or cannot be seen, then taste; otherwise in their order.
void orderByImportance(std::vector<Finding>& findings);

// {level, code, path, pointer, message, suggestion?, repair?}. The paths are those of the document as it is
// written.
Json findingAsJson(const Finding& finding, const Json& written);
Json findingsAsJson(std::span<const Finding> findings, const Json& written);
// The JSON Schema of one of them.
Json findingSchema();

// All repairs that change no intent, as one patch that can be applied to the document.
JsonPatch repairsOf(std::span<const Finding> findings, const Json& written);

// Whether the second list is worse: more errors, or as many and more of all.
bool isWorse(std::span<const Finding> before, std::span<const Finding> after);

}   // namespace tavix
