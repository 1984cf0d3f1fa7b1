#include "ui/word_lines.h"

#include <QBuffer>
#include <QClipboard>
#include <QDataStream>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QShortcut>
#include <algorithm>
#include <optional>
#include <utility>

#include "files/path_names.h"
#include "lines/line_text.h"
#include "lines/strips.h"
#include "output/occurrence_rows.h"
#include "ui/document_pane.h"
#include "ui/text.h"
#include "ui_word_lines.h"
#include "util/time_text.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

constexpr int LARGEST_MATCH = 30;         // characters that the column of the matches has room for
constexpr qsizetype MOST_MEASURED = 200;  // only these words determine the width of that column

// Selects only this row, even if a key is held that would add it to the selection.
void ChooseRow(QTableView& table, int row) {
  table.selectionModel()->setCurrentIndex(
      table.model()->index(row, 0),
      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// `rows` are ascending. Consecutive rows are selected as one range, because selecting each row
// alone is slow.
QItemSelection Selection(const QAbstractItemModel& model, const std::vector<int>& rows) {
  QItemSelection selection;
  for (std::size_t begin = 0, end = 0; begin < rows.size(); begin = end) {
    while (++end < rows.size() && rows[end] == rows[end - 1] + 1) {
    }
    selection.select(model.index(rows[begin], 0),
                     model.index(rows[end - 1], model.columnCount() - 1));
  }
  return selection;
}

// The dialog does not ask before an existing file is replaced; Session::Save does.
QString AskForFile(QWidget& window, const QString& title, const QString& filter) {
  return QFileDialog::getSaveFileName(&window, title, {}, filter, nullptr,
                                      QFileDialog::DontConfirmOverwrite);
}

std::vector<LineGroup> EachOnce(const Lines& lines) {
  std::vector<LineGroup> groups;
  groups.reserve(lines.size());
  for (const Line& line : lines) groups.push_back({line, 1});
  return groups;
}

}  // namespace

WordLines::WordLines(Session& session, Conversation& ui, WordLinesHost host, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::WordLines>()),
      session_(session),
      conversation_(ui),
      host_(std::move(host)),
      words_(new WordsModel(this)),
      lines_(new LinesModel(this)) {
  ui_->setupUi(this);
  ui_->tblWords->setModel(words_);
  ui_->tblWords->setItemDelegateForColumn(WordsModel::PLACES, new StripDelegate(this));
  ui_->tblLines->setModel(lines_);
  ui_->tblLines->setItemDelegate(new LineDelegate(this));
  for (QTableView* table : {ui_->tblWords, ui_->tblLines}) {
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 4);
    table->horizontalHeader()->setHighlightSections(false);
    table->viewport()->installEventFilter(this);
  }
  ui_->tblWords->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  ui_->splitWords->setStretchFactor(1, 1);
  ui_->splitRight->setStretchFactor(0, 3);
  ui_->splitRight->setStretchFactor(1, 2);
  ui_->splitWords->setSizes({260, 740});
  setFocusProxy(ui_->txbFindWord);
  ConnectWords();
  ConnectLines();
  AddKeys();
  ShowOrders();
  ShowCount();
}

WordLines::~WordLines() = default;

DocumentPane& WordLines::Document() const { return *ui_->txbDocument; }

void WordLines::ConnectWords() {
  connect(ui_->txbFindWord, &QLineEdit::textChanged, this, &WordLines::txbFindWord_Change);
  connect(ui_->txbFindWord, &QLineEdit::returnPressed, ui_->tblWords,
          [this] { ui_->tblWords->setFocus(); });
  connect(ui_->tblWords->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &WordLines::ShowLines);
  connect(ui_->tblWords, &QWidget::customContextMenuRequested, this, &WordLines::tblWords_Menu);
  // A reset of the model clears the selection, so it is saved and restored.
  auto chosen = std::make_shared<std::vector<EntryIndex>>();
  connect(words_, &QAbstractItemModel::modelAboutToBeReset, this,
          [this, chosen] { *chosen = ChosenEntries(); });
  connect(words_, &QAbstractItemModel::modelReset, this, [this, chosen] {
    if (!isStale_) ChooseWords(*chosen);
  });
}

void WordLines::ConnectLines() {
  connect(ui_->cboLineOrder, &QComboBox::currentIndexChanged, this, &WordLines::ShowLines);
  connect(ui_->chkDescending, &QCheckBox::toggled, this, &WordLines::ShowLines);
  connect(ui_->chkEqualOnce, &QCheckBox::toggled, this, &WordLines::ShowLines);
  connect(ui_->txbLineFilter, &QLineEdit::textChanged, this, &WordLines::ShowLines);
  connect(ui_->tblLines->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &WordLines::ShowLine);
  connect(ui_->tblLines, &QWidget::customContextMenuRequested, this, &WordLines::tblLines_Menu);
  connect(ui_->cmdSaveLines, &QPushButton::clicked, this, &WordLines::cmdSaveLines_Click);
  ui_->stripsView->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(ui_->stripsView, &QWidget::customContextMenuRequested, this, &WordLines::stripsView_Menu);
  connect(ui_->stripsView, &StripsView::PlaceChosen, this, &WordLines::GoTo);
  connect(ui_->txbDocument, &DocumentPane::WordChosen, this, &WordLines::txbDocument_WordChosen);
}

void WordLines::AddKeys() {
  const auto on = [this](const QKeySequence& key, QWidget* where, auto act) {
    connect(new QShortcut(key, where, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, act);
  };
  on(QKeySequence::Copy, ui_->tblWords, [this] { CopyWords(); });
  on(QKeySequence::Copy, ui_->tblLines, [this] { CopyLines(); });
  on(Qt::CTRL | Qt::Key_Down, this, [this] { GoToPlace(true); });
  on(Qt::CTRL | Qt::Key_Up, this, [this] { GoToPlace(false); });
}

void WordLines::Show(std::shared_ptr<const Listing> listing) {
  if (listing == listing_ && !isStale_) return;
  Release();
  listing_ = std::move(listing);
  isStale_ = true;
  if (isVisible()) Update();
}

void WordLines::Release() {
  work_.Stop();
  if (listing_ != nullptr && !isStale_) {
    wanted_.clear();
    for (const EntryIndex entry : ChosenEntries()) {
      wanted_.insert(QString::fromStdU16String(listing_->words->words.table->At(entry).word));
    }
  }
  isStale_ = true;  // so that no lines are made of the old listing
  listing_.reset();
  all_.clear();
  words_->Show(nullptr);
  lines_->Show(nullptr, {});
  ui_->txbDocument->Show(nullptr);
  ui_->stripsView->Show({});
  ShowCount();
}

void WordLines::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (isStale_) Update();
}

void WordLines::Update() {
  words_->Show(listing_);
  isStale_ = false;
  ShowOrders();
  if (listing_ == nullptr) return;
  ui_->txbDocument->Show(listing_->words->words.document);
  std::vector<EntryIndex> entries;
  for (int row = 0; !wanted_.empty() && row < words_->rowCount(); ++row) {
    if (wanted_.contains(QString::fromStdU16String(words_->WordAt(row).word))) {
      entries.push_back(words_->EntryAt(row));
    }
  }
  if (entries.empty() && words_->rowCount() > 0) entries.push_back(words_->EntryAt(0));
  FitColumns();
  ChooseWords(entries);
}

void WordLines::ChooseWords(const std::vector<EntryIndex>& entries) {
  const std::vector<int> rows = words_->RowsOf(entries);
  if (rows.empty()) return ShowLines();
  QItemSelectionModel& selection = *ui_->tblWords->selectionModel();
  const QModelIndex first = words_->index(rows.front(), 0);
  selection.setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  selection.select(Selection(*words_, rows), QItemSelectionModel::ClearAndSelect);
  ui_->tblWords->scrollTo(first, QAbstractItemView::PositionAtCenter);
}

std::vector<EntryIndex> WordLines::ChosenEntries() const {
  std::vector<EntryIndex> entries;
  for (const QModelIndex& index : ui_->tblWords->selectionModel()->selectedRows()) {
    entries.push_back(words_->EntryAt(index.row()));
  }
  std::ranges::sort(entries);
  return entries;
}

LineSource WordLines::Source() const {
  LineSource source = LinesOfListing(*listing_);
  // With context size 0 the listing has no contexts, but here lines are shown with the default
  // size.
  if (source.context.contextSize == 0) source.context.contextSize = ContextOptions().contextSize;
  return source;
}

// Fills the list of orders, with one order for each context word on each side.
void WordLines::ShowOrders() {
  const int size = listing_ == nullptr ? 1 : Source().context.contextSize;
  const QString chosen = ui_->cboLineOrder->currentText();
  const QSignalBlocker blocker(ui_->cboLineOrder);
  ui_->cboLineOrder->clear();
  orders_.clear();
  const auto add = [this](const QString& name, LineKey key, int fromWord = 1) {
    ui_->cboLineOrder->addItem(name);
    orders_.push_back({key, fromWord});
  };
  add(tr("Place"), LineKey::place);
  for (int word = 1; word <= size; ++word) add(tr("Right %1").arg(word), LineKey::right, word);
  for (int word = 1; word <= size; ++word) add(tr("Left %1").arg(word), LineKey::left, word);
  add(tr("Match"), LineKey::match);
  ui_->cboLineOrder->setCurrentIndex(std::max(0, ui_->cboLineOrder->findText(chosen)));
}

LineOrder WordLines::Order() const {
  LineOrder order = orders_.at(static_cast<std::size_t>(ui_->cboLineOrder->currentIndex()));
  order.isDescending = ui_->chkDescending->isChecked();
  return order;
}

void WordLines::ShowLines() {
  if (isStale_ || listing_ == nullptr) return;
  work_.Do([this](Progress& progress) {
    if (listing_ != nullptr) MakeLines(progress);
  });
}

// When stopped, it leaves the table as it is: other lines are wanted then, or none.
void WordLines::MakeLines(Progress& progress) {
  ui_->lblLineCount->setText(tr("..."));
  // Kept, because a run may release it meanwhile.
  const std::shared_ptr<const Listing> listing = listing_;
  const LineSource source = Source();
  std::optional<Lines> all = LinesOf(source, ChosenEntries(), progress);
  if (!all) return;
  std::optional<Lines> lines = all;
  const QString filter = ui_->txbLineFilter->text().simplified();
  if (!filter.isEmpty()) {
    const Alphabet& alphabet = source.words.document->AlphabetOf();
    lines = LinesWith(alphabet.Typed(filter.toStdString()), *all, source, progress);
  }
  if (!lines || !OrderLines(*lines, source, Order(), progress)) return;
  std::optional<std::vector<LineGroup>> groups =
      ui_->chkEqualOnce->isChecked() ? EqualLinesOnce(*lines, source, progress) : EachOnce(*lines);
  progress.YieldNow();
  if (!groups || progress.StopRequested()) return;
  all_ = *std::move(all);
  PutLines(*std::move(groups));
}

// Shows the lines in the table. The current line stays current if it is still there.
void WordLines::PutLines(std::vector<LineGroup> groups) {
  const QModelIndex current = ui_->tblLines->currentIndex();
  const Position before =
      current.isValid() ? lines_->Groups()[static_cast<std::size_t>(current.row())].first.position
                        : NO_POSITION;
  lines_->Show(listing_, std::move(groups));
  FitColumns();
  ShowCount();
  ShowStrips();
  const int again = before == NO_POSITION ? -1 : lines_->RowOf(before);
  if (lines_->rowCount() > 0) ChooseRow(*ui_->tblLines, std::max(again, 0));
}

void WordLines::ShowCount() {
  const int count = lines_->rowCount();
  const QString number = ShownText(GroupedNumber(count)).trimmed();
  // The number passed to tr() chooses the plural form in a translation.
  ui_->lblLineCount->setText(count == 1 ? tr("1 line")
                                        : tr("%1 lines", nullptr, count).arg(number));
  ui_->cmdSaveLines->setEnabled(count > 0);
}

void WordLines::ShowStrips() {
  const std::vector<EntryIndex> entries = ChosenEntries();
  StripWords strips;
  for (const EntryIndex entry : entries) {
    const WordEntry& word = listing_->words->words.table->At(entry);
    strips.words.push_back(QString::fromStdU16String(word.word));
  }
  strips.placesOf = [this, entries](std::size_t row) {
    SilentProgress nobody;
    const Lines lines = *LinesOf(Source(), {{entries[row]}}, nobody);
    std::vector<Position> places(lines.size());
    std::ranges::transform(lines, places.begin(), &Line::position);
    return places;
  };
  strips.length = listing_->Source().documentText.size();
  ui_->stripsView->Show(std::move(strips));
}

void WordLines::ShowLine() {
  const QModelIndex current = ui_->tblLines->currentIndex();
  if (!current.isValid() || listing_ == nullptr) return;
  ui_->txbDocument->Mark(lines_->PlaceOf(current.row()));
  MarkPlace(lines_->Groups()[static_cast<std::size_t>(current.row())].first.position);
}

// The column of the matches is as wide as the words; the contexts share the rest equally.
void WordLines::FitColumns() {
  QTableView& lines = *ui_->tblLines;
  const bool once = ui_->chkEqualOnce->isChecked();
  lines.setColumnHidden(LinesModel::TIMES, !once);
  QFont bold = font();
  bold.setBold(true);
  const QFontMetrics metrics(bold);
  int match = metrics.horizontalAdvance("mmmm");
  const QModelIndexList chosen = ui_->tblWords->selectionModel()->selectedRows();
  for (const QModelIndex& index : chosen.mid(0, MOST_MEASURED)) {
    const QString word = QString::fromStdU16String(words_->WordAt(index.row()).word);
    match = std::max(match, metrics.horizontalAdvance(word.left(LARGEST_MATCH) + "sm"));
  }
  const int times = once ? metrics.horizontalAdvance("0000000") : 0;
  const int side = std::max(50, (lines.viewport()->width() - match - times) / 2);
  lines.setColumnWidth(LinesModel::LEFT, side);
  lines.setColumnWidth(LinesModel::MATCH, match);
  lines.setColumnWidth(LinesModel::RIGHT, side);
  lines.setColumnWidth(LinesModel::TIMES, times);
  QTableView& words = *ui_->tblWords;
  const int number = metrics.horizontalAdvance("000,000,0");
  const int room = words.viewport()->width() - number;
  words.setColumnWidth(WordsModel::WORD, room / 2);
  words.setColumnWidth(WordsModel::COUNT, number);
  words.setColumnWidth(WordsModel::PLACES, room - room / 2);
}

bool WordLines::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) FitColumns();
  return QWidget::eventFilter(watched, event);
}

void WordLines::txbFindWord_Change() {
  const QString typed = ui_->txbFindWord->text();
  words_->Narrow(typed);
  const std::vector<EntryIndex> found = words_->Find(typed);
  if (!found.empty()) ChooseWords(found);
}

void WordLines::GoTo(Position position) {
  const int row = lines_->RowOf(position);
  // If equal lines are shown once, most of their places have no row.
  if (row >= 0) return ChooseRow(*ui_->tblLines, row);
  const auto line = std::ranges::find(all_, position, &Line::position);
  if (line == all_.end()) return;
  const WordEntry& word = listing_->words->words.table->At(line->entry);
  ui_->txbDocument->Mark(SpanOfOccurrence(listing_->Source().documentText, word.word, position));
  MarkPlace(position);
}

void WordLines::MarkPlace(Position position) {
  shown_ = position;
  ui_->stripsView->MarkPlace(position);
}

void WordLines::GoToPlace(bool forward) {
  if (all_.empty()) return;
  const auto behind = std::ranges::upper_bound(all_, shown_, {}, &Line::position);
  const auto at = std::ranges::lower_bound(all_, shown_, {}, &Line::position);
  if (forward && behind != all_.end()) GoTo(behind->position);
  if (!forward && at != all_.begin()) GoTo(std::prev(at)->position);
}

void WordLines::txbDocument_WordChosen(std::size_t place) {
  if (listing_ == nullptr) return;
  const WordTable& table = *listing_->words->words.table;
  const std::u16string_view text = listing_->Source().documentText;
  for (int row = 0; row < words_->rowCount(); ++row) {
    const EntryIndex entry = words_->EntryAt(row);
    const WordEntry& word = table.At(entry);
    // The last recorded position at or just after this place.
    const auto behind = std::ranges::upper_bound(word.positions, PositionOf(place) + 1);
    if (behind == word.positions.begin()) continue;
    const Position position = *std::prev(behind);
    const TextSpan span = SpanOfOccurrence(text, word.word, position);
    if (place < span.begin || place > span.end) continue;
    ChooseWords({entry});
    GoTo(position);
    return;
  }
}

void WordLines::tblWords_Menu(const QPoint& place) {
  QMenu menu(this);
  menu.setObjectName("wordMenu");
  const bool any = !ChosenEntries().empty();
  QAction* leaveOut = menu.addAction(tr("Leave out"));
  leaveOut->setEnabled(any && host_.mayLeaveOut());
  QAction* copy = menu.addAction(tr("Copy"));
  copy->setEnabled(any);
  const QAction* chosen = menu.exec(ui_->tblWords->viewport()->mapToGlobal(place));
  if (chosen == copy) CopyWords();
  if (chosen != leaveOut) return;
  QStringList words;
  for (const EntryIndex entry : ChosenEntries()) {
    words.append(QString::fromStdU16String(listing_->words->words.table->At(entry).word));
  }
  host_.leaveOut(words);
}

void WordLines::tblLines_Menu(const QPoint& place) {
  QMenu menu(this);
  menu.setObjectName("lineMenu");
  QAction* copy = menu.addAction(tr("Copy"));
  QAction* save = menu.addAction(tr("Save lines ..."));
  const QAction* chosen = menu.exec(ui_->tblLines->viewport()->mapToGlobal(place));
  if (chosen == copy) CopyLines();
  if (chosen == save) cmdSaveLines_Click();
}

void WordLines::stripsView_Menu(const QPoint& place) {
  QMenu menu(this);
  menu.setObjectName("stripsMenu");
  const QAction* save = menu.addAction(tr("Save picture ..."));
  if (menu.exec(ui_->stripsView->mapToGlobal(place)) == save) SavePicture();
}

void WordLines::CopyWords() {
  QStringList words;
  for (const QModelIndex& index : ui_->tblWords->selectionModel()->selectedRows()) {
    words.append(words_->index(index.row(), WordsModel::WORD).data().toString());
  }
  QGuiApplication::clipboard()->setText(words.join('\n'));
}

std::vector<LineGroup> WordLines::ChosenLines() const {
  std::vector<int> rows;
  for (const QModelIndex& index : ui_->tblLines->selectionModel()->selectedRows()) {
    rows.push_back(index.row());
  }
  std::ranges::sort(rows);
  std::vector<LineGroup> lines;
  lines.reserve(rows.size());
  for (const int row : rows) lines.push_back(lines_->Groups()[static_cast<std::size_t>(row)]);
  return lines;
}

void WordLines::CopyLines() {
  if (listing_ == nullptr) return;
  std::string text;
  TableWork work;
  ComposeLineText(
      ChosenLines(), Source(), LineForm::tabbed, ui_->chkEqualOnce->isChecked(),
      [&text](std::string_view piece) {
        text += piece;
        return true;
      },
      work);
  QGuiApplication::clipboard()->setText(QString::fromStdString(text).chopped(1));
}

void WordLines::SayNotSaved(const Fault& fault, const std::string& path) {
  const bool replaces = fault.kind == FaultKind::wouldReplace;
  const QString reason = ShownText(fault.reason);
  const QString text = replaces ? tr("This file cannot be the same as the %1.").arg(reason)
                                : ShownText(VisibleName(path)) + '\n' + reason;
  conversation_.Tell(text.toStdString(), STANDARD_TITLE);
}

// The extension of the file chooses the format.
void WordLines::cmdSaveLines_Click() {
  if (listing_ == nullptr) return;
  const QString chosen = AskForFile(
      *this, tr("Save lines"), tr("Text (*.txt);;Tab-separated values (*.tsv);;JSON (*.json)"));
  if (chosen.isEmpty()) return;
  const std::string path = PathOf(chosen);
  const std::string extension = LowerExtensionOf(path);
  const bool once = ui_->chkEqualOnce->isChecked();
  Listing listing = *listing_;
  listing.options.contextSize = Source().context.contextSize;
  TableWork work;
  const auto fault = session_.Save(path, true, [&](const PieceSink& take) {
    if (extension == "tsv" || extension == "json") {
      const RowFormat format = extension == "json" ? RowFormat::json : RowFormat::tsv;
      ComposeLines(listing, lines_->Groups(), once, format, take, work);
    } else {
      ComposeLineText(lines_->Groups(), Source(), LineForm::aligned, once, take, work);
    }
  });
  if (fault) SayNotSaved(*fault, path);
}

void WordLines::SavePicture() {
  if (listing_ == nullptr) return;
  const QString chosen =
      AskForFile(*this, tr("Save picture"), tr("Drawing (*.svg);;Picture (*.png)"));
  if (chosen.isEmpty()) return;
  const std::string path = PathOf(chosen);
  const std::string title = VisibleName(listing_->Source().source.path);
  TableWork work;
  QByteArray image;
  const bool isImage = LowerExtensionOf(path) == "png";
  if (isImage) {
    QBuffer buffer(&image);
    if (!ui_->stripsView->Picture(ShownText(title)).save(&buffer, "PNG")) {
      return conversation_.Tell(
          tr("There are too many words for a PNG picture. Choose fewer words, or save it as SVG.")
              .toStdString(),
          STANDARD_TITLE);
    }
  }
  const auto fault = session_.Save(path, true, [&](const PieceSink& take) {
    if (isImage) {
      take(std::string_view(image.constData(), static_cast<std::size_t>(image.size())));
    } else {
      DrawStrips(title, Source(), ChosenEntries(), take, work);
    }
  });
  if (fault) SayNotSaved(*fault, path);
}

QByteArray WordLines::State() const {
  QByteArray state;
  QDataStream stream(&state, QIODevice::WriteOnly);
  stream << ui_->splitWords->saveState() << ui_->splitRight->saveState();
  return state;
}

void WordLines::Restore(const QByteArray& state) {
  QDataStream stream(state);
  QByteArray words;
  QByteArray right;
  stream >> words >> right;
  if (stream.status() != QDataStream::Ok) return;
  ui_->splitWords->restoreState(words);
  ui_->splitRight->restoreState(right);
}

}  // namespace quorvel
