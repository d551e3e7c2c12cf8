// Everything that an inspector may say of any document, so that it can be said in other languages. It is read
// off the inspections of documents in which everything is there once: a new key of a layer has its words here
// at once.
#pragma once

#include <set>
#include <string>

namespace tavix {

struct DocumentWords {
    // Headings, the names of rows and of motions without their numbers, and of what can be chosen, as they
    // are shown.
    std::set<std::string> labels;
    std::set<std::string> helps;   // sentences of the reference, under the pointer
};
DocumentWords documentWords();

// "Cue 12" is "Cue" and "12"; the number is empty where there is none.
struct NumberedLabel {
    std::string label, number;
};
NumberedLabel numbered(const std::string& label);

// "lineRise" and "line-rise" are "Line rise".
std::string labelOfWord(const std::string& word);

}   // namespace tavix
