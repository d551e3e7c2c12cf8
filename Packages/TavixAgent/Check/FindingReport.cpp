#include "TavixAgent/Check/FindingReport.h"

#include "TavixCore/Findings/LintRule.h"
#include "TavixCore/Judge/Repair.h"

#include <algorithm>
#include <utility>

namespace tavix {
namespace {

using CompositionLint::Rule;
using Level = Finding::Level;

bool isError(const Finding& finding) { return finding.level == Level::error; }

// What loses something that the author wanted, before what could merely look better.
int weightOf(const Finding& finding) {
    const Rule rule = CompositionLint::ruleOf(finding.code).value_or(Rule::unreadable);
    if (isError(finding)) return rule == Rule::unreadable ? 0 : 1;
    switch (rule) {
    case Rule::keyUnknown:
    case Rule::wordUnknown:
    case Rule::valueDropped:
    case Rule::keyIgnored:
    case Rule::fontMissing:
    case Rule::soundMissing:
    case Rule::soundUnknown: return 2;
    case Rule::neverVisible:
    case Rule::wordBroken:
    case Rule::textOverflow:
    case Rule::textBrief:
    case Rule::textSmall:
    case Rule::lowContrast:
    case Rule::footageShort:
    case Rule::framesBlack:
    case Rule::framesFrozen:
    case Rule::opensEmpty: return 3;
    default: return 4;
    }
}

Json textSchema(const char* meaning) { return JsonObject{{"type", "string"}, {"description", meaning}}; }

}   // namespace

void orderByImportance(std::vector<Finding>& findings) { std::ranges::stable_sort(findings, {}, weightOf); }

const char* wordOf(Finding::Level level) {
    switch (level) {
    case Finding::Level::error: return "error";
    case Finding::Level::warning: return "warning";
    case Finding::Level::note: return "note";
    case Finding::Level::progress: break;
    }
    return "progress";
}

JsonObject findingAsJson(const Finding& finding) {
    JsonObject one{{"level", wordOf(finding.level)}, {"code", finding.code}, {"path", finding.path},
        {"message", finding.message}};
    if (finding.suggestion) one.set("suggestion", *finding.suggestion);
    if (!finding.file.empty()) one.set("file", finding.file);
    return one;
}

JsonObject findingAsJson(const Finding& finding, const Json& written) {
    JsonObject one = findingAsJson(finding);
    one.set("pointer", CompositionLint::pointerOf(finding.path, written).text());
    if (const JsonPatch repair = CompositionLint::repairOf(finding, written); !repair.empty())
        one.set("repair", writePatch(repair));
    return one;
}

Json findingsAsJson(std::span<const Finding> findings) {
    JsonArray all;
    for (const Finding& finding : findings) all.emplace_back(findingAsJson(finding));
    return all;
}

Json findingsAsJson(std::span<const Finding> findings, const Json& written) {
    JsonArray all;
    for (const Finding& finding : findings) all.emplace_back(findingAsJson(finding, written));
    return all;
}

Json findingSchema() {
    return JsonObject{{"type", "object"},
        {"properties",
            JsonObject{{"level", JsonObject{{"enum", JsonArray{"error", "warning"}}}},
                {"code", textSchema("The rule; it stays the same from version to version.")},
                {"path", textSchema("Where it is, with keys and indices.")},
                {"pointer", textSchema("The same as a JSON Pointer in the document as it is written.")},
                {"message", textSchema("What is wrong.")}, {"suggestion", textSchema("What to do.")},
                {"file", textSchema("The file that it speaks of.")},
                {"repair", JsonObject{{"type", "array"}, {"items", JsonObject{{"type", "object"}}},
                               {"description", "A JSON Patch that mends it, where that is certain."}}}}},
        {"required", JsonArray{"level", "code", "path", "pointer", "message"}}};
}

JsonPatch repairsOf(std::span<const Finding> findings, const Json& written) {
    JsonPatch all;
    Json document = written;
    for (const Finding& finding : findings) {
        const auto rule = CompositionLint::ruleOf(finding.code);
        if (!rule || !CompositionLint::keepsIntent(*rule)) continue;
        // One repair may have moved what another one mends; that is left to the next time.
        JsonPatch repair = CompositionLint::repairOf(finding, document);
        try {
            document = applyPatch(repair, document);
            std::ranges::move(repair, std::back_inserter(all));
        } catch (const PatchError&) {}
    }
    return all;
}

bool isWorse(std::span<const Finding> before, std::span<const Finding> after) {
    const auto errorsBefore = std::ranges::count_if(before, isError),
               errorsAfter = std::ranges::count_if(after, isError);
    return errorsAfter > errorsBefore || (errorsAfter == errorsBefore && after.size() > before.size());
}

}   // namespace tavix
