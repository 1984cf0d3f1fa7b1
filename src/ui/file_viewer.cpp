#include "ui/file_viewer.h"

#include <QCoreApplication>
#include <QDialog>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QScreen>
#include <QStringDecoder>
#include <optional>

#include "files/read_file.h"
#include "ui/find_bar.h"
#include "ui/text.h"
#include "ui_file_viewer.h"
#include "util/ansi.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

constexpr std::u16string_view NOTE_BEFORE =
    u"NOTE: This file is too large to display entirely in this textbox.\r\n"
    u"To view the entire contents of the file load it into NotePad,\r\n"
    u"WordPad or some other text editor.\r\n\r\n";
constexpr std::u16string_view NOTE_BEHIND =
    u"NOTE: Entire contents of file have not been displayed.\r\n";

// The characters of `bytes`, or nothing if they are not valid UTF-8.
std::optional<std::u16string> StrictUtf8(std::string_view bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  if (decoder.hasError()) return std::nullopt;
  return text.toStdU16String();
}

// If only the start of the file was read, it may end inside a character of up to four bytes.
std::u16string DecodeStart(std::string_view bytes) {
  constexpr std::size_t MOST_CUT_OFF = 3;
  const std::size_t mostCutOff = bytes.size() < VIEWER_BYTES ? 0 : MOST_CUT_OFF;
  for (std::size_t cutOff = 0; cutOff <= mostCutOff; ++cutOff) {
    if (const auto text = StrictUtf8(bytes.substr(0, bytes.size() - cutOff))) return *text;
  }
  return DecodeAnsi(bytes);
}

// Makes the viewer as large as a page of text, or smaller if the screen is small.
void FitToPage(QWidget& viewer, const QFont& font) {
  constexpr int COLUMNS = 92;  // 80 for the text, the rest for margins and the scroll bar
  constexpr int LINES = 36;
  const QFontMetrics metrics(font);
  const QSize page(metrics.horizontalAdvance('0') * COLUMNS, metrics.lineSpacing() * LINES);
  const QSize screen = viewer.screen()->availableSize();
  viewer.resize(page.boundedTo({screen.width() * 9 / 10, screen.height() * 3 / 4}));
}

class FileViewer : public QDialog {
  Q_DECLARE_TR_FUNCTIONS(FileViewer)

 public:
  explicit FileViewer(QWidget* parent) : QDialog(parent, Qt::Window) {
    form_.setupUi(this);
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    form_.txbText1->setFont(font);
    FitToPage(*this, font);
    findBar_ = AddFindBar(*form_.findBar, *form_.txbText1,
                          {tr("Find in the text"), tr("Find in what is shown of the text")}, *this);
    connect(form_.cmdClose, &QPushButton::clicked, this, &QDialog::close);
  }

  // Returns a message about the file if it cannot be read, otherwise an empty text.
  QString Show(const std::string& path, const QString& caption) {
    if (QString fault = Read(path); !fault.isEmpty()) return fault;
    setWindowTitle(caption);
    form_.txbText1->setFocus();
    show();
    raise();
    activateWindow();
    return {};
  }

 protected:
  // Reads the file again when the user returns to the viewer and the file has changed.
  void changeEvent(QEvent* event) override {
    QDialog::changeEvent(event);
    const bool comesBack = event->type() == QEvent::ActivationChange && isActiveWindow();
    if (comesBack && StampOf(path_) != stamp_) (void)Read(path_);
  }

  // By default both keys close the dialog. In the find bar, Esc closes only the bar, and Enter has
  // already found the next place.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && findBar_->IsOpen()) return findBar_->Close();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QWidget* focus = focusWidget();
    if (isEnter && focus != nullptr && focus->objectName() == "txbFind") return;
    QDialog::keyPressEvent(event);
  }

 private:
  QString Read(const std::string& path) {
    const FileStamp stamp = StampOf(path);
    const Result<std::string> start = ReadFileBytes(path, VIEWER_BYTES);
    if (!start) return MessageOf(path, start.Error());
    path_ = path;
    stamp_ = stamp;
    const std::u16string text = ViewerText(*start);
    form_.txbText1->setPlainText(QString::fromStdU16String(text));
    findBar_->ShowSearchesPart(text.size() >= VIEWER_LIMIT);
    return {};
  }

  static QString MessageOf(const std::string& path, const Fault& fault) {
    const QString name = ShownText(VisibleName(path));
    return fault.kind == FaultKind::notAFile
               ? tr("File %1\nis a device or a pipe, not a file.").arg(name)
               : tr("File %1\ncannot be read: %2").arg(name, ShownText(fault.reason));
  }

  Ui::FileViewer form_;
  FindBar* findBar_ = nullptr;
  std::string path_;
  FileStamp stamp_;
};

FileViewer& ViewerOf(QWidget& window) {
  for (QObject* child : window.children()) {
    if (auto* viewer = dynamic_cast<FileViewer*>(child)) return *viewer;
  }
  return *new FileViewer(&window);  // the main window deletes it
}

}  // namespace

std::u16string ViewerText(std::string_view bytes) {
  std::u16string text = DecodeStart(bytes);
  if (text.size() < VIEWER_LIMIT) return text;
  std::size_t length = VIEWER_LIMIT - NOTE_BEFORE.size() - NOTE_BEHIND.size();
  if (QChar::isHighSurrogate(text[length - 1])) --length;
  text.resize(length);
  return std::u16string(NOTE_BEFORE) + text + u"\r\n\r\n" + std::u16string(NOTE_BEHIND);
}

void ViewFile(QWidget& window, const std::string& path, const QString& caption, Conversation& ui) {
  const QString fault = ViewerOf(window).Show(path, caption);
  if (!fault.isEmpty()) ui.Tell(fault.toStdString(), STANDARD_TITLE);
}

void ViewHelp(QWidget& window, Conversation& ui) {
  const std::string path = DataFilePath("qvl_help.txt");
  if (!FileExists(path)) {
    return ui.Tell("The help file is not installed:\r\n" + VisibleName(path), STANDARD_TITLE);
  }
  ViewFile(window, path, "Help for Quorvel", ui);
}

}  // namespace quorvel
