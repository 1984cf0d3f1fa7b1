// The tab "Words and lines": all words of the listing, the lines of those that are chosen, where in
// the document they stand, and the document there.
//
// It works on the values of the listing, which it shares. Which lines there are, their order and
// what is saved of them is decided in the core.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
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

// What it wants of the window around it.
struct WordLinesHost {
  // Whether words may be left out of the listing, and does it.
  std::function<bool()> mayLeaveOut;
  std::function<void(const QStringList&)> leaveOut;
};

class WordLines : public QWidget {
  Q_OBJECT

 public:
  WordLines(Session& session, Conversation& ui, QWidget* parent);
  ~WordLines() override;

  void SetHost(WordLinesHost host) { host_ = std::move(host); }

  // Shows the words of a listing, of which none may be there. The words that were chosen stay so,
  // as far as they are in it.
  void Show(std::shared_ptr<const Listing> listing);

  // Lets go of the listing, so that a run has its memory.
  void Release();

  [[nodiscard]] DocumentPane& Document() const;

  // Goes to the next or previous place of the chosen words in the document.
  void GoToPlace(bool forward);

  // The widths of its parts, and back.
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
  void GoTo(std::int32_t position);
  void MarkPlace(std::int32_t position);
  void ChooseWords(const std::vector<std::int32_t>& entries);
  [[nodiscard]] std::vector<std::int32_t> ChosenEntries() const;
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
  std::set<QString> wanted_;  // the words that were chosen in the last listing
  bool isStale_ = false;      // the listing is not shown yet
  Lines all_;                 // of the chosen words, in the order of their places
  std::int32_t shown_ = 0;    // the place that is marked, as the table of words has it
  LatestWork work_;           // that makes the lines
};

}  // namespace quorvel
