#include "ui/text_box.h"

#include <QLineEdit>

namespace quorvel {

void ReplaceText(QLineEdit& box, const QString& text) {
  if (box.text() != text) {
    box.selectAll();
    if (text.isEmpty()) {
      box.del();
    } else {
      box.insert(text);
    }
  }
  box.setModified(false);
}

}  // namespace quorvel
