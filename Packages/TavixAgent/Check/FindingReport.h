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

// "error", "warning", "note" or "progress".
const char* wordOf(Finding::Level level);

// {level, code, path, message, suggestion?, file?}: every finding of the product, wherever it is told. Of a
// document, as it is written and with its paths, also {pointer, repair?}.
JsonObject findingAsJson(const Finding& finding);
JsonObject findingAsJson(const Finding& finding, const Json& written);
Json findingsAsJson(std::span<const Finding> findings);
Json findingsAsJson(std::span<const Finding> findings, const Json& written);
// The JSON Schema of one of a document.
Json findingSchema();

// All repairs that change no intent, as one patch that can be applied to the document.
JsonPatch repairsOf(std::span<const Finding> findings, const Json& written);

// Whether the second list is worse: more errors, or as many and more of all.
bool isWorse(std::span<const Finding> before, std::span<const Finding> after);

}   // namespace tavix
