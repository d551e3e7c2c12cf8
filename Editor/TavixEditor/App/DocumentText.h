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
QString documentHelp(const std::string& help);
QString stepWords(const std::string& step);   // as the menu names it; those of a view are translated already
// As timeline::selectionSummary, which is English.
QString selectionWords(const EditState& state);

}   // namespace tavix::editor
