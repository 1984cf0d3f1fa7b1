#include "ui/language_chooser.h"

#include <QDialog>
#include <QStringList>
#include <algorithm>

#include "lists/languages.h"
#include "ui/text.h"
#include "ui_language_chooser.h"

namespace quorvel {
namespace {

constexpr int ALL_LANGUAGES_INDEX = static_cast<int>(LANGUAGES.size());

QStringList LanguageNames() {
  QStringList names;
  for (const Language& language : LANGUAGES) names += ShownText(language.name);
  QString all = ShownText(ALL_LANGUAGES.name);
  all[0] = all[0].toUpper();
  return names << all;
}

QString AcceptCaption(int index) {
  return index == ALL_LANGUAGES_INDEX ? "&Load stop words file for these languages"
                                      : "&Load stop words file for this language";
}

// Makes the button wide enough for both captions, so that it keeps its width.
void FitBothCaptions(QPushButton& button) {
  int width = 0;
  for (const int index : {ALL_LANGUAGES_INDEX, 0}) {
    button.setText(AcceptCaption(index));
    width = std::max(width, button.sizeHint().width());
  }
  button.setMinimumWidth(width);
}

}  // namespace

int ChooseLanguage(QWidget* parent, int inUse) {
  QDialog dialog(parent);
  Ui::LanguageChooser form;
  form.setupUi(&dialog);
  FitBothCaptions(*form.cmdAccept);
  QObject::connect(form.cboCommonWordsFiles, &QComboBox::currentIndexChanged, &dialog,
                   [&form](int index) { form.cmdAccept->setText(AcceptCaption(index)); });
  form.cboCommonWordsFiles->addItems(LanguageNames());
  form.cboCommonWordsFiles->setCurrentIndex(inUse);
  QObject::connect(form.cmdAccept, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(form.cmdCancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  return dialog.exec() == QDialog::Accepted ? form.cboCommonWordsFiles->currentIndex() : -1;
}

}  // namespace quorvel
