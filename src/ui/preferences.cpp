#include "ui/preferences.h"

#include <QFileInfo>
#include <QSettings>

#include "settings/settings_file.h"
#include "ui/text.h"

namespace quorvel {
namespace {

constexpr const char* READING = "reading";
constexpr const char* UNICODE = "unicode";
constexpr const char* WINDOWS_1252 = "windows-1252";

// Beside the settings file.
QSettings Preferences() {
  const QString folder = QFileInfo(ShownPath(StateFilePath())).path();
  return {folder + "/window.ini", QSettings::IniFormat};
}

}  // namespace

Reading KeptReading() {
  return Preferences().value(READING).toString() == UNICODE ? Reading::unicode
                                                            : Reading::windows1252;
}

void KeepReading(Reading reading) {
  Preferences().setValue(READING, reading == Reading::unicode ? UNICODE : WINDOWS_1252);
}

}  // namespace quorvel
