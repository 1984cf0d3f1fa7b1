#include "ui/translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>

#include "files/file_system.h"
#include "ui/text.h"

namespace quorvel {
namespace {

std::string TranslationPath(const QString& name) {
  return DataFilePath(("quorvel_" + name + ".qm").toStdString());
}

void Load(const QString& file, const QString& folder = {}) {
  auto* translator = new QTranslator(qApp);
  if (translator->load(file, folder)) QCoreApplication::installTranslator(translator);
}

}  // namespace

QString ChooseTranslation(const QStringList& languages,
                          const std::function<bool(const QString&)>& exists) {
  for (QString name : languages) {
    name.replace('-', '_');
    for (; !name.isEmpty(); name.truncate(std::max<qsizetype>(name.lastIndexOf('_'), 0))) {
      if (exists(name)) return name;
      if (name == "en") return {};  // the texts are English without a translation
    }
  }
  return {};
}

void LoadTranslation() {
  const QString name = ChooseTranslation(QLocale().uiLanguages(), [](const QString& candidate) {
    return FileExists(TranslationPath(candidate));
  });
  if (name.isEmpty()) return;
  Load("qtbase_" + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  Load(ShownPath(TranslationPath(name)));
}

}  // namespace quorvel
