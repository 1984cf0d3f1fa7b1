#include "ui/window_test.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <stdexcept>

#include "ui/x_client.h"

namespace quorvel {
WindowTest::WindowTest() {
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder_.Path("config")));
}

void WindowTest::Open(const std::string& path, const BoxList& boxes) {
  window_.reset();
  window_ = std::make_unique<MainWindow>();
  window_->resize(1000, 700);
  window_->show();
  Do("start", boxes, [this, &path] { window_->Start(path); });
}

std::string WindowTest::OpenText(const std::string& name, const std::string& bytes) {
  std::string path = folder_.Write(name, bytes);
  Open(path, {LoadsStopWords()});
  return path;
}

void WindowTest::Do(const std::string& name, const BoxList& boxes,
                    const std::function<void()>& act) {
  boxes_.During(boxes, name, [this, &act] {
    if (QApplication::activeWindow() == nullptr) Activate(*window_);
    act();
  });
}

void WindowTest::Click(const std::string& control, const BoxList& boxes) {
  QWidget& clicked = Control(control);
  Do(control, boxes, [&clicked] {
    Activate(*clicked.window());
    ClickOn(clicked);
  });
}

void WindowTest::Press(QKeyCombination keys, const BoxList& boxes) {
  Do(QKeySequence(keys).toString().toStdString(), boxes, [keys] {
    QWindow* window = QApplication::activeWindow()->windowHandle();
    QTest::keyClick(window, keys.key(), keys.keyboardModifiers());
  });
}

void WindowTest::TypeInto(const std::string& control, const std::string& text) {
  Click(control);
  QWidget& window = *Control(control).window();
  QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(window.windowHandle(), Qt::Key_Delete);
  TypeText(window, text);
}

void WindowTest::Type(const std::string& control, const std::string& text, const BoxList& boxes,
                      Qt::Key end) {
  TypeInto(control, text);
  QWindow* window = Control(control).window()->windowHandle();
  Do(control, boxes, [window, end] { QTest::keyClick(window, end); });
}

void WindowTest::Choose(const std::string& list, const std::string& item, const BoxList& boxes) {
  auto& box = dynamic_cast<QComboBox&>(Control(list));
  const int place = box.findText(QString::fromStdString(item));
  ASSERT_GE(place, 0) << item;
  Click(list);
  ExpectSoon([&box] { return box.view()->isVisible(); });
  QWindow* opened = box.view()->window()->windowHandle();
  QTest::keyClick(opened, Qt::Key_Home);
  for (int i = 0; i < place; ++i) QTest::keyClick(opened, Qt::Key_Down);
  Do(list, boxes, [opened] { QTest::keyClick(opened, Qt::Key_Return); });
}

void WindowTest::Drop(const std::string& path, const BoxList& boxes) {
  const QPoint place = Control("txbFile_0").mapToGlobal(QPoint(5, 5));
  Do("drop", boxes, [this, &path, place] { DragFileTo(*window_, place, path); });
}

QWidget& WindowTest::Control(const std::string& name) const {
  for (QWidget* control : window_->findChildren<QWidget*>(QString::fromStdString(name))) {
    if (control->isVisible()) return *control;
  }
  throw std::runtime_error("no visible control " + name);
}

bool WindowTest::Shown(const std::string& name) const {
  const auto controls = window_->findChildren<QWidget*>(QString::fromStdString(name));
  return std::ranges::any_of(controls, &QWidget::isVisible);
}

std::string WindowTest::Text(const std::string& name) const {
  const QWidget* control =
      Shown(name) ? &Control(name) : window_->findChild<QWidget*>(QString::fromStdString(name));
  for (const char* property : {"plainText", "currentText", "text"}) {
    const QVariant text = control == nullptr ? QVariant() : control->property(property);
    if (text.isValid()) return text.toString().remove('&').toStdString();
  }
  throw std::runtime_error("no text in " + name);
}

std::string WindowTest::Texts(const Names& names) const {
  std::string texts;
  for (const std::string& name : names) texts += Text(name);
  return texts;
}

std::string WindowTest::Which(const char* property, const Names& names) const {
  std::string which;
  for (const std::string& name : names) {
    if (Control(name).property(property).toBool()) which += name + " ";
  }
  return which;
}

void WindowTest::ExpectNames(const QWidget& window) {
  std::set<QString> heard;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const bool takesKeys = control->isVisible() && control->focusPolicy() != Qt::NoFocus;
    const bool isPart = qobject_cast<QComboBox*>(control->parentWidget()) != nullptr;
    if (!takesKeys || isPart || control->window() != &window) continue;
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(control);
    // A drop-down list without a label is named after its chosen entry.
    QString name = spoken.role() == QAccessible::ComboBox ? "" : spoken.text(QAccessible::Name);
    for (const auto& [other, relation] : spoken.relations(QAccessible::Label)) {
      if (other->role() == QAccessible::StaticText) name = other->text(QAccessible::Name);
    }
    const QString inWindow = QString::number(spoken.role()) + name;
    EXPECT_TRUE(!name.trimmed().isEmpty() && heard.insert(inWindow).second)
        << control->objectName().toStdString() << " " << name.toStdString();
  }
  EXPECT_FALSE(heard.empty()) << window.windowTitle().toStdString();
}

void WindowTest::ExpectSoon(const std::function<bool()>& condition) {
  EXPECT_TRUE(QTest::qWaitFor(condition, 5000));
}

Box WindowTest::LoadsStopWords() {
  return {"Stop words loaded", [](QWidget& box) { PressButton(box, "OK"); }};
}

Box WindowTest::WantsKeywords() {
  return Tells("Search", "Specify a keywords file or type one or more extra keywords.",
               Icon::information);
}

Box WindowTest::OffersKeywords(const char* button) {
  return Asks("Keywords to search for", "Display search words?", "Yes", button);
}

}  // namespace quorvel
