// Converts texts and paths between the core and the window.
//
// The core's texts are UTF-8 with CR LF line ends, and its paths are the file system's own bytes.
// Widgets use UTF-16 with LF. Their paths have "/" between folders on every system.
#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <string>
#include <string_view>

namespace quorvel {

// Converts a text of the core for a widget.
[[nodiscard]] inline QString ShownText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).remove('\r');
}

// Converts a path for a widget. Some file names cannot be shown exactly.
[[nodiscard]] inline QString ShownPath(const std::string& path) {
#ifdef _WIN32
  return QString::fromStdString(path);
#else
  return QFile::decodeName(QByteArray::fromStdString(path));
#endif
}

// Converts a path that a widget shows.
[[nodiscard]] inline std::string PathOf(const QString& shown) {
#ifdef _WIN32
  return QDir::toNativeSeparators(shown).toStdString();
#else
  return QFile::encodeName(shown).toStdString();
#endif
}

// Sets `path` to the path in a box. If `path` is already shown so, it keeps its own bytes.
inline void TakePath(const QString& shown, std::string& path) {
  if (shown != ShownPath(path)) path = PathOf(shown);
}

}  // namespace quorvel
