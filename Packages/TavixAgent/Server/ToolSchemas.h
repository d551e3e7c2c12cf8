// What the tools take and give, as JSON Schemas.
#pragma once

#include "TavixCore/Support/Json.h"

namespace tavix::ToolSchemas {

Json newDocument();
Json newDocumentOutput();
Json readDocument();
Json readDocumentOutput();
Json editDocument();
Json editDocumentOutput();
Json check();
Json checkOutput();
Json describe();
Json describeOutput();
Json still();
Json sheet();
Json pictureOutput();
Json diff();
Json diffOutput();
Json render();
Json renderOutput();
Json presets();
Json schema();
Json schemaOutput();
Json file();
Json anyOutput();

}   // namespace tavix::ToolSchemas
