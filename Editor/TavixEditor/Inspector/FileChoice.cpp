#include "TavixEditor/Inspector/FileChoice.h"

#include "TavixEditor/App/Words.h"
#include "TavixEditor/Inspector/InspectorWords.h"

#include <QFileDialog>

namespace tavix::editor {

namespace {

QString filterOf(Role role) {
    switch (role) {
    case Role::picture: return InspectorWords::tr("Pictures (*.png *.jpg *.jpeg *.webp *.heic)");
    case Role::clip:
    case Role::recording: return InspectorWords::tr("Clips (*.mp4 *.mov *.webm *.mkv)");
    case Role::soundFile: return InspectorWords::tr("Sounds (*.mp3 *.m4a *.wav *.flac *.ogg *.aac)");
    case Role::fontPath: return InspectorWords::tr("Fonts (*.ttf *.otf *.ttc)");
    default: return {};
    }
}

// What lies in the bundle is named from there.
std::string namedFrom(const std::optional<std::filesystem::path>& folder, const std::filesystem::path& file) {
    if (!folder) return file.string();
    const std::filesystem::path relative = file.lexically_relative(*folder);
    const bool isInside = !relative.empty() && *relative.begin() != "..";
    return (isInside ? relative : file).string();
}

}   // namespace

std::optional<std::string> chooseFile(
    QWidget* parent, Role role, const std::optional<std::filesystem::path>& folder) {
    const QString file = QFileDialog::getOpenFileName(
        parent, InspectorWords::tr("Choose a file"), folder ? pathWords(*folder) : QString(), filterOf(role));
    return file.isEmpty() ? std::nullopt : std::optional(namedFrom(folder, pathOf(file)));
}

}   // namespace tavix::editor
