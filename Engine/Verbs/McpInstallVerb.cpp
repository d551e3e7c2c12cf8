#include "Engine/Verbs/McpInstallVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/System/Errors.h"

#include <system_error>

namespace tavix::engine {

namespace {

std::string hostIDs() {
    std::string list;
    for (const Host& host : hosts()) list.append(list.empty() ? "" : ", ").append(host.id);
    return list;
}

std::filesystem::path projectFolder(const std::string& given) {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::canonical(given, error);
    if (error || !std::filesystem::is_directory(folder, error))
        throw UsageError("There is no folder \"" + given + "\"; --repo takes the folder of a project.");
    return folder;
}

}   // namespace

void McpHostVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.text("--host", host_, "ID", "The program that agents run in: " + hostIDs() + ".");
    std::vector<std::string> ids;
    for (const Host& host : hosts()) ids.emplace_back(host.id);
    arguments.completes("--host", std::move(ids));
    arguments.flag("--global", isGlobal_, "For all of your projects.");
    arguments.text("--repo", repo_, "FOLDER", "For the project in this folder.");
    if (takesCommand())
        arguments.text("--command", command_, "CMD", "What starts tavix there; tavix by default.");
    arguments.jsonFlag(terminal);
}

void McpHostVerb::run(Terminal& terminal) {
    if (!host_) throw UsageError("Say which host, as in --host claude; there are " + hostIDs() + ".");
    if (isGlobal_ == repo_.has_value())
        throw UsageError("Say where: either --global, or --repo FOLDER for one project.");
    InstallRequest request{hostNamed(*host_), UserFolders::ofEnvironment(), {}};
    if (repo_) request.project = projectFolder(*repo_);
    if (command_) request.command = *command_;
    const InstallResult result = change(request);
    JsonArray written, notes;
    for (const auto& file : result.written) {
        written.emplace_back(file.string());
        terminal.tell("✓ Wrote " + file.string());
    }
    if (result.written.empty()) terminal.tell("Nothing is to be changed.");
    for (const std::string& note : result.notes) {
        notes.emplace_back(note);
        terminal.tell(note);
    }
    if (terminal.mode() == Terminal::Mode::json)
        terminal.result(JsonObject{
            {"host", request.host.id}, {"written", std::move(written)}, {"notes", std::move(notes)}});
}

}   // namespace tavix::engine
