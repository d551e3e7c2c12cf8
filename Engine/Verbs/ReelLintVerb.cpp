#include "Engine/Verbs/ReelLintVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/System/Errors.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixReel/Lint/FlowSpecLint.h"

#include <algorithm>

namespace tavix::engine {

void ReelLintVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional(
        "flow", flow_, "The flow, a JSON document.", "reel lint needs a flow, a JSON document.");
    arguments.jsonFlag(terminal);
}

void ReelLintVerb::run(Terminal& terminal) {
    const FlowSpec flow = readFlow(flow_, terminal);
    const std::vector<Finding> findings = FlowSpecLint::lint(flow);
    const auto summary = FlowSpecLint::summary(flow);
    if (terminal.mode() == Terminal::Mode::json) {
        JsonObject result{{"findings", findingsAsJson(findings)}};
        if (summary) result.set("summary", *summary);
        terminal.report(std::move(result));
    } else {
        std::string lines;
        for (const Finding& finding : findings)
            lines.append(wordOf(finding.level)).append(": ").append(finding.message) += "\n";
        terminal.result(lines + (summary ? *summary + "\n" : ""));
    }
    if (std::ranges::find(findings, Finding::Level::error, &Finding::level) != findings.end())
        throw ErrorsTold();
}

}   // namespace tavix::engine
