#include "Engine/Verbs/McpStatusVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "TavixAgent/Hosts/Installation.h"

namespace tavix::engine {

namespace {

std::string lineOf(const HostStatus& status) {
    std::string line = std::string(status.host->id) + (status.isFound ? ", found" : ", not found");
    if (!status.fault.empty()) return line + ", " + status.file.string() + ": " + status.fault + "\n";
    return line + (status.command ? ", starts " + *status.command + " by " : ", not in ") +
           status.file.string() + "\n";
}

Json jsonOf(const HostStatus& status) {
    JsonObject json{{"id", status.host->id}, {"label", status.host->label}, {"found", status.isFound},
        {"installed", status.command.has_value()}, {"file", status.file.string()}};
    if (status.command) json.set("command", *status.command);
    if (!status.fault.empty()) json.set("fault", status.fault);
    return json;
}

}   // namespace

void McpStatusVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.text("--repo", repo_, "FOLDER", "Tell of the project in this folder; of you by default.");
    arguments.jsonFlag(terminal);
}

void McpStatusVerb::run(Terminal& terminal) {
    std::optional<std::filesystem::path> project;
    if (repo_) project = *repo_;
    std::string text;
    JsonArray all;
    for (const HostStatus& status : hostStatus(UserFolders::ofEnvironment(), project)) {
        text += lineOf(status);
        all.push_back(jsonOf(status));
    }
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(std::move(all));
    else
        terminal.result(text);
}

}   // namespace tavix::engine
