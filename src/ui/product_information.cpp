#include "ui/product_information.h"

#include <QCoreApplication>
#include <QDialog>

#include "output/concordance_file.h"
#include "ui_product_information.h"

namespace quorvel {
namespace {

constexpr QSize ICON_SIZE(64, 64);
constexpr int BUILT_IN_SIZES[] = {16, 24, 32, 48, 64, 128, 256};  // in pixels

}  // namespace

void ShowProductInformation(QWidget* parent) {
  QDialog dialog(parent);
  Ui::ProductInformation form;
  form.setupUi(&dialog);
  form.lblIcon->setPixmap(ProgramIcon().pixmap(ICON_SIZE, dialog.devicePixelRatio()));
  form.lblVersion->setText(QCoreApplication::translate("ProductInformation", "Version %1")
                               .arg(QString::fromStdString(VersionText())));
  QObject::connect(form.cmdClose, &QPushButton::clicked, &dialog, &QDialog::accept);
  dialog.exec();
}

QIcon ProgramIcon() {
  QIcon builtIn;
  for (const int size : BUILT_IN_SIZES) {
    builtIn.addFile(QString(":/icons/quorvel_%1.png").arg(size), QSize(size, size));
  }
  return QIcon::fromTheme("quorvel", builtIn);
}

}  // namespace quorvel
