#include "Engine/Console/LintCodes.h"

#include "TavixAgent/Check/FindingReport.h"
#include "TavixCore/Findings/LintRule.h"

#include <algorithm>

namespace tavix::engine {

namespace {

using CompositionLint::Level;
using CompositionLint::RuleEntry;

constexpr const char* pageHead = R"(<!-- Written by `tavix lint --codes --markdown`. -->
# What lint tells

Every finding has a level, a path in the document, a sentence and a code. An error stops `tavix render`; a
warning passes. A rule is muted by its code: on the command line by `--mute CODE`, in the document by

```json
{"lint": {"mute": ["text-small"]}}
```

and `lint` then says how many findings are muted. The examples are documents, scenes or layers. Those whose
codes begin with `frames-` and `flash-` are told by `tavix lint --frames`, which draws the film small.
)";

}   // namespace

std::vector<std::string> lintCodeNames() {
    std::vector<std::string> names;
    for (const RuleEntry& entry : CompositionLint::rules()) names.emplace_back(entry.code);
    return names;
}

std::string lintCodesAsText() {
    std::size_t widest = 0;
    for (const RuleEntry& entry : CompositionLint::rules()) widest = std::max(widest, entry.code.size());
    std::string text;
    for (const RuleEntry& entry : CompositionLint::rules()) {
        text.append(entry.code).append(widest + 2 - entry.code.size(), ' ');
        text.append(entry.level == Level::error ? "error    " : "warning  ").append(entry.tells).append("\n");
        text.append(widest + 11, ' ').append(entry.repair).append("\n");
    }
    return text;
}

Json lintCodesAsJson() {
    JsonArray all;
    for (const RuleEntry& entry : CompositionLint::rules()) {
        JsonObject one{{"code", entry.code}, {"level", wordOf(entry.level)}, {"tells", entry.tells},
            {"repair", entry.repair}};
        if (!entry.fragment.empty()) one.set("example", entry.fragment);
        all.emplace_back(std::move(one));
    }
    return all;
}

std::string lintCodesPage() {
    std::string page = pageHead;
    for (const RuleEntry& entry : CompositionLint::rules()) {
        page.append("\n## ").append(entry.code).append("\n\n");
        page.append(entry.level == Level::error ? "An error. " : "A warning. ")
            .append(entry.tells)
            .append("\n");
        if (!entry.fragment.empty()) page.append("\n```json\n").append(entry.fragment).append("\n```\n");
        page.append("\n").append(entry.repair).append("\n");
    }
    return page;
}

}   // namespace tavix::engine
