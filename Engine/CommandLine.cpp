#include "Engine/CommandLine.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Console/Words.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "Engine/Verbs/Verbs.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixAgent/Edit/Revision.h"
#include "TavixCore/Support/TavixVersion.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tavix::engine {

namespace {

std::string overviewLine(std::string_view name, std::string_view meaning) {
    constexpr std::size_t nameWidth = 15;
    return "  " + std::string(name) + std::string(nameWidth - name.size(), ' ') + std::string(meaning) + "\n";
}

std::string overview() {
    std::string text =
        "Tavix turns a JSON document into a product video.\n\nUsage: tavix VERB [OPTIONS]\n\nVerbs:\n";
    for (const VerbEntry& verb : verbs()) text += overviewLine(verb.name, verb.summary);
    return text + overviewLine("help", "Explain a verb; tavix VERB --help is the same.") +
           "\n"
           "Options:\n" +
           overviewLine("--version", "Print the version.") + overviewLine("--help", "Show this.") +
           "\n"
           "Exit status: 0 done, 1 the document has errors, 2 wrong use, 3 reading or writing failed.\n"
           "\n"
           "Example:\n"
           "  tavix new hello.tavixcomp && tavix render hello.tavixcomp\n";
}

// The verbs of a family, as in `reel author`: those whose name begins with this word and goes on.
std::vector<const VerbEntry*> familyOf(const std::string& word) {
    std::vector<const VerbEntry*> family;
    for (const VerbEntry& verb : verbs())
        if (verb.name.starts_with(word + " ")) family.push_back(&verb);
    return family;
}

std::string familyOverview(const std::string& word) {
    std::string text = "Usage: tavix " + word + " VERB [OPTIONS]\n\nVerbs:\n";
    for (const VerbEntry* verb : familyOf(word)) text += overviewLine(verb->name, verb->summary);
    return text;
}

// Takes the one or two words of a verb off the front.
const VerbEntry& takeVerb(std::span<const std::string>& words) {
    const std::string first = words.front();
    words = words.subspan(1);
    std::string name = first;
    std::vector<std::string_view> known{"help"};
    if (const auto family = familyOf(first); !family.empty()) {
        known.clear();
        for (const VerbEntry* verb : family) known.push_back(verb->name);
        if (words.empty())
            throw UsageError("A verb is missing after \"" + first + "\", as in tavix " +
                             std::string(known.front()) + ". See tavix " + first + " --help.");
        name += " " + words.front();
        words = words.subspan(1);
    }
    for (const VerbEntry& verb : verbs()) {
        if (verb.name == name) return verb;
        if (name == first) known.push_back(verb.name.substr(0, verb.name.find(' ')));
    }
    throw UsageError("There is no verb \"" + name + "\"." + suggestion(name, known) + " See tavix --help.");
}

void runVerb(const VerbEntry& entry, std::span<const std::string> words, Terminal& terminal) {
    const std::unique_ptr<Verb> verb = entry.make();
    Arguments arguments(entry.name, entry.summary, entry.example);
    verb->declare(arguments, terminal);
    if (arguments.parse(words))
        verb->run(terminal);
    else
        terminal.result(arguments.help());
}

void help(std::span<const std::string> words, Terminal& terminal) {
    if (words.empty() || words.front().starts_with("-") || words.front() == "help")
        return terminal.result(overview());
    if (words.size() == 1 && !familyOf(words.front()).empty())
        return terminal.result(familyOverview(words.front()));
    const std::string showHelp[] = {"--help"};
    runVerb(takeVerb(words), showHelp, terminal);
}

void dispatch(std::span<const std::string> words, Terminal& terminal) {
    if (words.empty())
        throw UsageError("A verb is missing, as in tavix render film.tavixcomp. See tavix --help.");
    const std::string& first = words.front();
    if (first == "--version") return terminal.result(std::string(TavixVersion::current) + "\n");
    if (first == "help" || first == "--help" || first == "-h") return help(words.subspan(1), terminal);
    const bool asksForFamily = words.size() == 2 && (words[1] == "--help" || words[1] == "-h");
    if (asksForFamily && !familyOf(first).empty()) return terminal.result(familyOverview(first));
    const VerbEntry& verb = takeVerb(words);
    runVerb(verb, words, terminal);
}

// Where the fault of a document is, before the sentence that tells it: many name the path themselves.
std::string placed(const DocumentError& error) {
    const bool namesPath = error.path().empty() || error.message().starts_with("\"" + error.path() + "\"");
    return error.file() + ": " + (namesPath ? "" : error.path() + ": ") + error.message();
}

int end(Terminal& terminal, int status, const std::string& sentence, const Finding& error) {
    terminal.complain(sentence);
    if (terminal.mode() != Terminal::Mode::json || SystemWatch::hasRefused()) return status;
    JsonObject told = findingAsJson(error);
    told.set("status", status);
    try {
        terminal.report({{"error", std::move(told)}});
    } catch (const Failure& failure) {
        terminal.complain(failure.message());
    }
    return status;
}

int endWith(Terminal& terminal, int status, std::string_view code, const std::exception& error) {
    Finding told{Finding::Level::error, {}, sentenceOf(error), {}, code, {}};
    return end(terminal, status, told.message, told);
}

}   // namespace

int runCommand(std::span<const std::string> words) {
    Terminal terminal;
    // Before the verb reads its words: one that cannot be read is told as JSON too.
    const auto options =
        words.first(static_cast<std::size_t>(std::ranges::find(words, "--") - words.begin()));
    if (std::ranges::find(options, "--json") != options.end()) terminal.setMode(Terminal::Mode::json);
    try {
        dispatch(words, terminal);
        return ExitStatus::done;
    } catch (const ErrorsTold&) {
        return ExitStatus::documentHasErrors;
    } catch (const DocumentError& error) {
        return end(terminal, ExitStatus::documentHasErrors, placed(error),
            {Finding::Level::error, error.path(), error.message(), {}, error.code(), error.file()});
    } catch (const RevisionError& error) {
        return endWith(terminal, ExitStatus::inputOrOutputFailed, "revision-changed", error);
    } catch (const UsageError& error) {
        return endWith(terminal, ExitStatus::wrongUse, "wrong-use", error);
    } catch (const Interrupted& error) {
        return endWith(terminal, ExitStatus::stoppedBySignal + error.signal(), "interrupted", error);
    } catch (const imaging::WorkStopped&) {
        const Interrupted error(Interruption::lastSignal());
        return endWith(terminal, ExitStatus::stoppedBySignal + error.signal(), "interrupted", error);
    } catch (const std::exception& error) {
        return endWith(terminal, ExitStatus::inputOrOutputFailed, "failed", error);
    }
}

}   // namespace tavix::engine
