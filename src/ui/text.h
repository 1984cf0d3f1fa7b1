// Between the core's texts and those of the window.
//
// The core's texts are UTF-8 with CR LF between lines, and its paths the file system's
// own bytes; a widget wants UTF-16 with LF. What the widgets say of files has "/" between
// folders on every system.
#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <string>
#include <string_view>

namespace quorvel {

// A text of the core, as a widget shows it.
[[nodiscard]] inline QString ShownText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).remove('\r');
}

// A path, as a widget shows it; not every name of a file can be shown as it is.
[[nodiscard]] inline QString ShownPath(const std::string& path) {
#ifdef _WIN32
  return QString::fromStdString(path);
#else
  return QFile::decodeName(QByteArray::fromStdString(path));
#endif
}

// The path that is shown so.
[[nodiscard]] inline std::string PathOf(const QString& shown) {
#ifdef _WIN32
  return QDir::toNativeSeparators(shown).toStdString();
#else
  return QFile::encodeName(shown).toStdString();
#endif
}

// Takes over what a box shows, unless that is `path` already, which then keeps its own bytes.
inline void TakePath(const QString& shown, std::string& path) {
  if (shown != ShownPath(path)) path = PathOf(shown);
}

}  // namespace quorvel
