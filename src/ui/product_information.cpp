#include "ui/product_information.h"

#include <QDialog>

#include "output/concordance_file.h"
#include "ui_product_information.h"

namespace quorvel {

void ShowProductInformation(QWidget* parent) {
  QDialog dialog(parent);
  Ui::ProductInformation form;
  form.setupUi(&dialog);
  form.lblVersion->setText("Version " + QString::fromStdString(VersionText()));
  QObject::connect(form.cmdClose, &QPushButton::clicked, &dialog, &QDialog::accept);
  dialog.exec();
}

}  // namespace quorvel
