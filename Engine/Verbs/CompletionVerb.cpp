#include "Engine/Verbs/CompletionVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Manners/Completion.h"
#include "Engine/System/Errors.h"
#include "Engine/Verbs/Verbs.h"

#include <array>

namespace tavix::engine {

namespace {

struct Shell {
    std::string_view name;
    std::string (*script)(const std::vector<VerbTable>& tables);
};
constexpr std::array shells{
    Shell{"bash", bashCompletion}, Shell{"zsh", zshCompletion}, Shell{"fish", fishCompletion}};

}   // namespace

void CompletionVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("shell", shell_,
        "One of bash, zsh or fish. For bash, as in source <(tavix completion bash); an installation has it done.",
        "completion needs a shell: bash, zsh or fish.");
    arguments.completes("shell", {"bash", "zsh", "fish"});
    arguments.jsonFlag(terminal);
}

void CompletionVerb::run(Terminal& terminal) {
    std::vector<std::string_view> known;
    for (const Shell& shell : shells) {
        known.push_back(shell.name);
        if (shell.name != shell_) continue;
        const std::string script = shell.script(verbTables(verbs()));
        if (terminal.mode() == Terminal::Mode::json)
            return terminal.report({{"shell", shell_}, {"script", script}});
        return terminal.result(script);
    }
    throw UsageError("There is no completion for \"" + shell_ + "\"; use " + listed(known) + "." +
                     suggestion(shell_, known));
}

}   // namespace tavix::engine
