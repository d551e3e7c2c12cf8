// The description of a document as a page for people, in Markdown.
#pragma once

#include <string>

namespace tavix {
struct DocumentSchema;
}

namespace tavix::engine {

// One chapter a definition, in the order in which a reader meets them; keys in the order of their tables.
std::string documentReference(const DocumentSchema& document);

}   // namespace tavix::engine
