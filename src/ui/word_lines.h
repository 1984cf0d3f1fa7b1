// The tab "Words and lines": all words of the listing, the lines of the chosen words, where they
// occur in the document, and the document at the chosen line.
//
// The tab shares the listing with the session. The core decides which lines there are, how they are
// ordered and how they are saved.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "lines/line_order.h"
#include "run/session.h"
#include "ui/lines_model.h"
#include "ui/table_work.h"
#include "ui/words_model.h"

namespace Ui {
class WordLines;
}

namespace quorvel {

class DocumentPane;

// What the tab needs from the main window.
struct WordLinesHost {
  // Whether words can be left out of the listing, and the function that leaves them out.
  std::function<bool()> mayLeaveOut;
  std::function<void(const QStringList&)> leaveOut;
};

class WordLines : public QWidget {
  Q_OBJECT

 public:
  WordLines(Session& session, Conversation& ui, WordLinesHost host, QWidget* parent);
  ~WordLines() override;

  // Shows the words of a listing, or nothing for null. Chosen words stay chosen if the listing has
  // them.
  void Show(std::shared_ptr<const Listing> listing);

  // Releases the listing, so that a run can use its memory.
  void Release();

  [[nodiscard]] DocumentPane& Document() const;

  // Goes to the next or previous place of the chosen words in the document.
  void GoToPlace(bool forward);

  // Saves and restores the widths of its parts.
  [[nodiscard]] QByteArray State() const;
  void Restore(const QByteArray& state);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void ConnectWords();
  void ConnectLines();
  void AddKeys();
  void Update();
  void ShowLines();
  void MakeLines(Progress& progress);
  void PutLines(std::vector<LineGroup> groups);
  void ShowOrders();
  void ShowStrips();
  void ShowLine();
  void ShowCount();
  void FitColumns();
  void GoTo(Position position);
  void MarkPlace(Position position);
  void ChooseWords(const std::vector<EntryIndex>& entries);
  [[nodiscard]] std::vector<EntryIndex> ChosenEntries() const;
  [[nodiscard]] LineOrder Order() const;
  [[nodiscard]] LineSource Source() const;
  [[nodiscard]] std::vector<LineGroup> ChosenLines() const;
  [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

  void txbFindWord_Change();
  void tblWords_Menu(const QPoint& place);
  void tblLines_Menu(const QPoint& place);
  void stripsView_Menu(const QPoint& place);
  void txbDocument_WordChosen(std::size_t place);
  void cmdSaveLines_Click();
  void SavePicture();
  void CopyWords();
  void CopyLines();
  void SayNotSaved(const Fault& fault, const std::string& path);

  std::unique_ptr<Ui::WordLines> ui_;
  Session& session_;
  Conversation& conversation_;
  WordLinesHost host_;
  WordsModel* words_ = nullptr;
  LinesModel* lines_ = nullptr;
  std::shared_ptr<const Listing> listing_;
  std::set<QString> wanted_;       // the chosen words of the last listing
  bool isStale_ = false;           // the table of words does not show the listing yet
  std::vector<LineOrder> orders_;  // of the items in the list of orders
  Lines all_;                      // lines of the chosen words, in the order of their places
  Position shown_ = NO_POSITION;   // the marked position
  LatestWork work_;                // makes the lines
};

}  // namespace quorvel
