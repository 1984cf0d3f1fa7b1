#include "ui/window_test.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QUrl>
#include <QWindow>
#include <stdexcept>
#include <utility>

#include "run/silent_conversation.h"
#include "run/stop_word_choice.h"
#include "run/word_lists.h"

namespace quorvel {
namespace {

// In which all of the window is to be seen and used.
constexpr QSize USABLE_SIZE(1000, 700);
constexpr int LOOK_MS = 5000;

}  // namespace

WindowTest::WindowTest() {
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder_.Path("config")));
}

void WindowTest::Open(const std::string& path, const BoxList& boxes) {
  window_.reset();
  window_ = std::make_unique<MainWindow>();
  window_->resize(USABLE_SIZE);
  window_->show();
  const auto* output = window_->findChild<QPlainTextEdit*>("txbOutput");
  QObject::connect(output, &QPlainTextEdit::textChanged, window_.get(), [this] { NotePhase(); });
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

void WindowTest::Type(const std::string& control, const std::string& text, const BoxList& boxes,
                      Qt::Key end) {
  Click(control);
  QWidget& window = *Control(control).window();
  QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(window.windowHandle(), Qt::Key_Delete);
  TypeText(window, text);
  Do(control, boxes, [&window, end] { QTest::keyClick(window.windowHandle(), end); });
}

// The list opens below the mouse and takes no click for a while, so keys choose.
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

void WindowTest::Drop(const std::string& path, const BoxList& boxes, const std::string& control) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  const QPoint place = Control(control).mapTo(window_.get(), QPoint(5, 5));
  Do("drop", boxes, [this, &data, place] {
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_->windowHandle(), &enter);
    if (!enter.isAccepted()) return;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_->windowHandle(), &drop);
  });
}

void WindowTest::CloseWindow(const BoxList& boxes) {
  Do("close", boxes, [this] { window_->windowHandle()->close(); });
}

void WindowTest::WhileScanning(std::function<void()> act) {
  acted_ = false;
  meanwhile_.disconnect();
  QObject::connect(&meanwhile_, &QTimer::timeout, &meanwhile_, [this, act = std::move(act)] {
    const bool isAmid = Text("lblTotalNumOccurrences").starts_with("[-");
    if (acted_ || !isAmid || !phases_.ends_with("Processing file, ")) return;
    acted_ = true;
    meanwhile_.stop();
    act();
  });
  meanwhile_.start(1);
}

QWidget& WindowTest::Control(const std::string& name) const {
  for (QWidget* control : window_->findChildren<QWidget*>(QString::fromStdString(name))) {
    if (control->isVisible()) return *control;
  }
  throw std::runtime_error("no visible control " + name);
}

bool WindowTest::Shown(const std::string& name) const {
  const auto* control = window_->findChild<QWidget*>(QString::fromStdString(name));
  return control != nullptr && control->isVisible();
}

std::string WindowTest::Text(const std::string& name) const {
  const QWidget* control = window_->findChild<QWidget*>(QString::fromStdString(name));
  for (const char* property : {"plainText", "currentText", "text"}) {
    const QVariant text = control == nullptr ? QVariant() : control->property(property);
    if (text.isValid() && name.starts_with("cmd")) return text.toString().remove('&').toStdString();
    if (text.isValid()) return text.toString().toStdString();
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

void WindowTest::ExpectSoon(const std::function<bool()>& condition) {
  EXPECT_TRUE(QTest::qWaitFor(condition, LOOK_MS));
}

Box WindowTest::LoadsStopWords(const Language& language) {
  const std::string path = StopWordsPath(language);
  StopWordList list;
  SilentConversation ui;
  EXPECT_TRUE(ReadStopWordsFile(path, list, ui));
  return Tells("Stop words loaded", StopWordsLoadedText(list, path), Icon::none);
}

Box WindowTest::WantsKeywords() {
  return Tells("Search", "Specify a keywords file or type one or more extra keywords.",
               Icon::information);
}

Box WindowTest::OffersKeywords(const char* button) {
  return Asks("Keywords to search for", "Display search words?", "Yes", button);
}

Box WindowTest::ReallyStop(const char* button) {
  return Asks("Stop", "Do you really wish to stop?", "No", button);
}

Box WindowTest::OffersIndex(const std::string& index, const char* button) {
  constexpr std::size_t DATE_LINE = 34;
  return Asks("Index file found",
              "An index file for this input file exists, created,\nnamely, " +
                  index.substr(DATE_LINE, 16) + ".\n\nDo you wish to use it?",
              "Yes", button);
}

void WindowTest::NotePhase() {
  const QString last = QString::fromStdString(Text("txbOutput")).trimmed().section('\n', -1);
  const std::string phase = last.section(" ...", 0, 0).toStdString() + ", ";
  if (last.endsWith(" ...") && !phases_.ends_with(phase)) phases_ += phase;
}

}  // namespace quorvel
