#include "ui/preferences.h"

#include <QFileInfo>
#include <QSettings>
#include <algorithm>

#include "files/file_system.h"
#include "settings/settings_file.h"
#include "ui/text.h"

namespace quorvel {
namespace {

constexpr const char* READING = "reading";
// On Windows UNICODE is a macro.
constexpr const char* READING_UNICODE = "unicode";
constexpr const char* READING_WINDOWS_1252 = "windows-1252";
constexpr const char* FOLDED = "window/folded";
constexpr const char* INPUTS = "inputs";
constexpr std::size_t MOST_INPUTS = 8;

// The file is beside the settings file.
QSettings Preferences() {
  const QString folder = QFileInfo(ShownPath(StateFilePath())).path();
  return {folder + "/window.ini", QSettings::IniFormat};
}

// Converts a path to text and back. The bytes of a file name need not be UTF-8.
QString EncodedPath(const std::string& path) {
  return QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/\\: "));
}

std::string DecodedPath(const QString& encoded) {
  return QByteArray::fromPercentEncoding(encoded.toLatin1()).toStdString();
}

bool MayBeKept(const std::string& path) {
  return QDir::isAbsolutePath(ShownPath(path)) && path.find('\0') == std::string::npos;
}

}  // namespace

Reading KeptReading() {
  return Preferences().value(READING).toString() == READING_UNICODE ? Reading::unicode
                                                                    : Reading::windows1252;
}

void KeepReading(Reading reading) {
  Preferences().setValue(READING,
                         reading == Reading::unicode ? READING_UNICODE : READING_WINDOWS_1252);
}

bool KeptFolding() { return Preferences().value(FOLDED).toString() == "true"; }

void KeepFolding(bool folded) { Preferences().setValue(FOLDED, folded); }

std::vector<std::string> KeptInputs() {
  std::vector<std::string> paths;
  for (const QString& encoded : Preferences().value(INPUTS).toStringList()) {
    std::string path = DecodedPath(encoded);
    const bool isNew = std::find(paths.begin(), paths.end(), path) == paths.end();
    if (isNew && MayBeKept(path) && paths.size() < MOST_INPUTS) paths.push_back(std::move(path));
  }
  return paths;
}

void KeepInput(const std::string& path) {
  const std::string newest = CanonicalPath(path);
  std::vector<std::string> paths = KeptInputs();
  std::erase(paths, newest);
  paths.insert(paths.begin(), newest);
  if (paths.size() > MOST_INPUTS) paths.pop_back();
  QStringList encoded;
  for (const std::string& kept : paths) encoded.append(EncodedPath(kept));
  Preferences().setValue(INPUTS, encoded);
}

void ForgetInputs() { Preferences().remove(INPUTS); }

QByteArray KeptState(const char* name) { return Preferences().value(name).toByteArray(); }

void KeepState(const char* name, const QByteArray& state) { Preferences().setValue(name, state); }

}  // namespace quorvel
