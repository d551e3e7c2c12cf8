// Between the words of the models and those of Qt.
#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace tavix::editor {

inline QString words(std::string_view utf8) { return QString::fromUtf8(utf8.data(), qsizetype(utf8.size())); }
inline QString pathWords(const std::filesystem::path& path) { return words(path.native()); }
inline std::string utf8Of(const QString& text) { return text.toStdString(); }
inline std::filesystem::path pathOf(const QString& text) { return text.toStdString(); }

}   // namespace tavix::editor
