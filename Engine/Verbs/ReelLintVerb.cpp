#include "Engine/Verbs/ReelLintVerb.h"

#include "Engine/Arguments.h"
#include "Engine/Errors.h"
#include "Engine/Reel/ReelRecording.h"
#include "Engine/Terminal.h"
#include "TavixCore/Support/Names.h"
#include "TavixReel/Lint/FlowSpecLint.h"

#include <algorithm>

namespace tavix::engine {

void ReelLintVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional(
        "flow", flow_, "The flow, a JSON document.", "reel lint needs a flow, a JSON document.");
    arguments.jsonFlag(terminal);
}

void ReelLintVerb::run(Terminal& terminal) {
    using FlowSpecLint::Finding;
    const FlowSpec flow = readFlow(flow_, terminal);
    const std::vector<Finding> findings = FlowSpecLint::lint(flow);
    const auto summary = FlowSpecLint::summary(flow);
    if (terminal.mode() == Terminal::Mode::json) {
        JsonArray all;
        for (const Finding& finding : findings)
            all.emplace_back(JsonObject{{"level", nameOf(finding.level)}, {"message", finding.message}});
        JsonObject result{{"findings", std::move(all)}};
        if (summary) result.set("summary", *summary);
        terminal.report(std::move(result));
    } else {
        std::string lines;
        for (const Finding& finding : findings)
            lines.append(nameOf(finding.level)).append(": ").append(finding.message) += "\n";
        terminal.result(lines + (summary ? *summary + "\n" : ""));
    }
    if (std::ranges::find(findings, Finding::Level::error, &Finding::level) != findings.end())
        throw ErrorsTold();
}

}   // namespace tavix::engine
