// What every verb is called with, from the tables that its arguments are read by.
#pragma once

#include "Engine/Console/ArgumentEntry.h"
#include "Engine/Console/Verb.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::engine {

struct VerbTable {
    std::string name, summary, example;   // the name of one or two words, as in "reel author"
    std::vector<ArgumentEntry> arguments;

    std::vector<const ArgumentEntry*> inPlace() const;
    std::vector<const ArgumentEntry*> named() const;
};

std::vector<VerbTable> verbTables(std::span<const VerbEntry> verbs);
// The words that a command may begin with, each with its meaning: verbs, families of verbs, "help".
struct FirstWord {
    std::string word, meaning;
    bool isFamily = false;
};
std::vector<FirstWord> firstWords(const std::vector<VerbTable>& tables);

}   // namespace tavix::engine
