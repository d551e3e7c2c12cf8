#include "Engine/Manners/VerbTable.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"

#include <algorithm>

namespace tavix::engine {

namespace {

std::vector<const ArgumentEntry*> those(const std::vector<ArgumentEntry>& all, bool areInPlace) {
    std::vector<const ArgumentEntry*> found;
    for (const ArgumentEntry& entry : all)
        if (entry.isInPlace == areInPlace) found.push_back(&entry);
    return found;
}

}   // namespace

std::vector<const ArgumentEntry*> VerbTable::inPlace() const { return those(arguments, true); }
std::vector<const ArgumentEntry*> VerbTable::named() const { return those(arguments, false); }

std::vector<VerbTable> verbTables(std::span<const VerbEntry> verbs) {
    Terminal nobody;
    std::vector<VerbTable> tables;
    for (const VerbEntry& entry : verbs) {
        const std::unique_ptr<Verb> verb = entry.make();
        Arguments arguments(entry.name, entry.summary, entry.example);
        verb->declare(arguments, nobody);
        tables.push_back({std::string(entry.name), std::string(entry.summary), std::string(entry.example),
            arguments.entries()});
    }
    return tables;
}

std::vector<FirstWord> firstWords(const std::vector<VerbTable>& tables) {
    std::vector<FirstWord> words;
    for (const VerbTable& table : tables) {
        const std::string first = table.name.substr(0, table.name.find(' '));
        const bool isFamily = first != table.name;
        if (isFamily && std::ranges::find(words, first, &FirstWord::word) != words.end()) continue;
        words.push_back({first, isFamily ? "See tavix " + first + " --help." : table.summary, isFamily});
    }
    words.push_back({"help", "Explain a verb; tavix VERB --help is the same."});
    return words;
}

}   // namespace tavix::engine
