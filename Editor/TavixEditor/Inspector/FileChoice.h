// Asks for a file of a document.
#pragma once

#include "TavixCore/Support/Role.h"

#include <filesystem>
#include <optional>
#include <string>

class QWidget;

namespace tavix::editor {

// As a document names it: what lies in the folder is named from there. Nothing when it is called off.
std::optional<std::string> chooseFile(
    QWidget* parent, Role role, const std::optional<std::filesystem::path>& folder);

}   // namespace tavix::editor
