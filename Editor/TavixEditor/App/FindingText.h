// What the judge of documents says, in the language of the interface. Its sentences come with paths, ids and
// numbers in them and are the command's, too; here each is known by the words around them.
#pragma once

#include <QString>

#include <optional>
#include <string>

namespace tavix::editor {

// A message or a suggestion of a finding. What is not known, such as what a library says of a file, stays.
QString findingWords(const std::string& sentence);

// Nothing where it is none of the sentences that can be said in other languages.
std::optional<QString> knownFinding(const QString& sentence);

}   // namespace tavix::editor
