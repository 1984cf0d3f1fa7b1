#include "ui/product_information.h"

#include <QLabel>

#include "output/concordance_file.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class ProductInformation : public WindowTest {};

TEST_F(ProductInformation, ShowsIconAndVersion) {
  Open();
  Click("cmdAbout", {{"About Quorvel", [this](QWidget& about) {
                        EXPECT_EQ(Text("lblVersion"), "Version " + VersionText());
                        EXPECT_EQ(about.findChild<QLabel*>("lblIcon")->pixmap().size(),
                                  QSize(64, 64));
                        PressButton(about, "Close");
                      }}});
  QList<QSize> sizes;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) sizes += QSize(size, size);
  EXPECT_EQ(ProgramIcon().availableSizes(), sizes);
}

}  // namespace
}  // namespace quorvel
