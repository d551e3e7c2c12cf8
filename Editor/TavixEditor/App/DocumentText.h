// What the tables of documents say, in the language of the interface: the inspector shows their words, which
// no source of the window has. `./dev words` collects them for who translates.
#pragma once

#include <QString>

#include <string>

namespace tavix {
struct EditState;
}

namespace tavix::editor {

QString documentLabel(const std::string& label);   // of a row, a heading or a choice, with its number
// Of a layer's bar: a word for what it is, or what its author wrote.
QString barWords(const std::string& label, bool isLabelledByKind);
QString documentHelp(const std::string& help);
QString stepWords(const std::string& step);   // as the menu names it; those of a view are translated already
// As timeline::selectionSummary, which is English.
QString selectionWords(const EditState& state);

}   // namespace tavix::editor
