// A document named on the command line.
#pragma once

#include "TavixAgent/Document/DocumentFile.h"

namespace tavix::engine {

// As `readDocument`; what the system refuses meanwhile was refused to read the document.
DocumentFile openDocument(const std::string& given);

}   // namespace tavix::engine
