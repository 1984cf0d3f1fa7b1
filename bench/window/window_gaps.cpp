// quorvel_window_gaps: measures how long the window does not handle events in each phase of a run,
// how soon a run ends after a confirmed stop, what handling events costs, and how fast the lines of
// words are shown.
//
//   tools/with_x_server.sh build/release/quorvel_window_gaps TEXT

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/path_names.h"
#include "lines_times.h"
#include "lists/languages.h"
#include "measures.h"
#include "run/session.h"
#include "run/silent_conversation.h"
#include "run/stop_word_choice.h"
#include "run/word_lists.h"
#include "ui/find_bar.h"
#include "ui/main_window.h"
#include "ui/pop_up.h"
#include "ui/window_interface.h"

namespace quorvel {
namespace {

constexpr int ROUNDS = 11;
constexpr const char* LAST_PHASE = "Writing and showing";

// Processor time of all threads or of the calling thread, depending on `clock`. Other processes do
// not affect it.
double ProcessorTime(clockid_t clock) {
  constexpr double MS_PER_SECOND = 1000;
  timespec time = {};
  ::clock_gettime(clock, &time);
  return MS_PER_SECOND * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

// Runs on a timer of the window and measures the gaps between events. Confirms each message box at
// once.
class Watch {
 public:
  explicit Watch(MainWindow& window)
      : output_(*window.findChild<QPlainTextEdit*>("txbOutput")),
        button_(*window.findChild<QPushButton*>("cmdListWords")) {
    QObject::connect(&output_, &QPlainTextEdit::textChanged, &timer_, [this] { NotePhase(); });
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
    timer_.start(1);
  }

  // Lists the words once. Returns the longest gap in each phase.
  std::map<std::string, double> List() {
    gaps_.clear();
    crossed_.clear();
    sinceTick_.start();
    button_.click();
    return gaps_;
  }

  // Like List, but stops in `phase`. Returns the time from the confirmation to the end.
  double Stop(const std::string& phase) {
    stopIn_ = phase;
    ended_ = -1;
    List();
    return ended_ < 0 ? Since(sinceConfirmed_) : ended_;
  }

  [[nodiscard]] const std::vector<std::string>& Phases() const { return phases_; }

 private:
  void NotePhase() {
    QTextBlock line = output_.document()->lastBlock();
    if (line.text().isEmpty()) line = line.previous();
    if (!line.isValid()) return;  // cleared for a run
    const QString text = line.text();
    phase_ = text.endsWith(" ...") ? text.chopped(4).toStdString() : LAST_PHASE;
    crossed_.push_back(phase_);
    const bool isNew = std::find(phases_.begin(), phases_.end(), phase_) == phases_.end();
    if (isNew) phases_.push_back(phase_);
  }

  // A gap over several phases counts for each of them.
  void Tick() {
    const double gap = Since(sinceTick_);
    for (const std::string& phase : crossed_) gaps_[phase] = std::max(gaps_[phase], gap);
    crossed_ = {phase_};
    sinceTick_.start();
    QWidget* const box = QApplication::activeModalWidget();
    if (auto* question = qobject_cast<QMessageBox*>(box)) {
      QAbstractButton* const yes = question->button(QMessageBox::Yes);
      sinceConfirmed_.start();
      (yes != nullptr ? yes : question->defaultButton())->click();
    } else if (QWidget* const popUp = ShownPopUp()) {  // reports the written file
      ended_ = Since(sinceConfirmed_);
      popUp->hide();
    } else if (!stopIn_.empty() && phase_ == stopIn_) {
      stopIn_.clear();
      QTimer::singleShot(0, &button_, &QPushButton::click);
    }
  }

  QPlainTextEdit& output_;
  QPushButton& button_;
  QTimer timer_;
  QElapsedTimer sinceTick_;
  QElapsedTimer sinceConfirmed_;
  std::map<std::string, double> gaps_;
  std::vector<std::string> phases_;   // in order
  std::vector<std::string> crossed_;  // since the last tick
  std::string phase_;                 // the current phase
  std::string stopIn_;
  double ended_ = -1;
};

// The window's conversation, which also measures the time for events.
class TimedInterface : public WindowInterface {
 public:
  using WindowInterface::WindowInterface;

  void YieldAtOnce() override {
    // Only this thread is measured, because the others continue their work.
    const double start = ProcessorTime(CLOCK_THREAD_CPUTIME_ID);
    WindowInterface::YieldAtOnce();
    yielded += ProcessorTime(CLOCK_THREAD_CPUTIME_ID) - start;
  }

  double yielded = 0;
};

ConversationControls ControlsOf(MainWindow& window) {
  const auto label = [&window](const char* name) { return window.findChild<QLabel*>(name); };
  return {
      .window = &window,
      .output = window.findChild<QPlainTextEdit*>("txbOutput"),
      .stopButton = window.findChild<QPushButton*>("cmdListWords"),
      .outputFileBox = window.findChild<QLineEdit*>("txbFile_3"),
      .labels = {label("lblNumberOfWords"), label("lblNumOccurrences"), label("lblKeywordsFound")},
      .progressBar = label("lblTotalNumOccurrences"),
      .busyIndicator = label("lblTwirler"),
      .timeElapsed = label("lblTimeElapsed"),
      .listingShown = label("lblListingShown"),
      .lossBar = window.findChild<QWidget*>("lossBar"),
      .lostCharacters = label("lblLost"),
      .readUnicode = window.findChild<QPushButton*>("cmdReadUnicode"),
      .findBar = window.findChild<FindBar*>()};
}

// Returns a session that lists the input as the window does.
std::unique_ptr<Session> SessionOn(const std::string& input, Conversation& ui) {
  auto session = std::make_unique<Session>(ui);
  SilentConversation nobody;
  ConcordanceSettings& settings = session->Settings();
  settings.inputFile = input;
  settings.outputFile = DefaultConcordanceFileName(input);
  settings.stopWordsFile = StopWordsPath(session->RecognizeLanguage().value_or(LANGUAGES.front()));
  (void)ReadStopWordsFile(settings.stopWordsFile, session->AlphabetNow(),
                          session->Lists().stopWords, nobody);
  return session;
}

double TimeOfRun(Session& session) {
  const double start = ProcessorTime(CLOCK_PROCESS_CPUTIME_ID);
  session.RunConcordance();
  return ProcessorTime(CLOCK_PROCESS_CPUTIME_ID) - start;
}

void MeasureYields(MainWindow& window, const std::string& input) {
  TimedInterface ui(ControlsOf(window));
  SilentConversation nobody;
  const std::unique_ptr<Session> unheard = SessionOn(input, nobody);
  const std::unique_ptr<Session> shown = SessionOn(input, ui);
  std::vector<double> silent;
  std::vector<double> heard;
  std::vector<double> yielded;
  for (int round = 0; round < ROUNDS; ++round) {
    silent.push_back(TimeOfRun(*unheard));
    ui.yielded = 0;
    ui.SetOutput("");
    ui.BeginWork();
    heard.push_back(TimeOfRun(*shown));
    ui.EndWork();
    yielded.push_back(ui.yielded);
  }
  PrintRow("A run without a window, processor time", silent);
  PrintRow("A run in the window, processor time", heard);
  PrintRow("Of that for events", yielded);
  std::printf("\nShare of the events: %.1f %%\n", 100 * MedianOf(yielded) / MedianOf(heard));
}

void MeasureGaps(Watch& watch) {
  std::map<std::string, std::vector<double>> gaps;
  std::map<std::string, std::vector<double>> stops;
  const std::vector<std::string> stopped = {"Processing file", "Creating concordance"};
  for (int round = 0; round < ROUNDS; ++round) {
    for (const auto& [phase, gap] : watch.List()) gaps[phase].push_back(gap);
    for (const std::string& phase : stopped) stops[phase].push_back(watch.Stop(phase));
  }
  std::printf("| Milliseconds | Median | Worst |\n|---|---|---|\n");
  for (const std::string& phase : watch.Phases()) {
    if (gaps.contains(phase)) PrintRow(phase, gaps[phase]);
  }
  for (const std::string& phase : stopped) PrintRow("Stopped in: " + phase, stops[phase]);
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  const QApplication application(argumentCount, arguments);
  const QString input = folder.filePath("text.txt");
  if (argumentCount != 2 || !QFile::copy(arguments[1], input)) {
    std::fputs("usage: quorvel_window_gaps TEXT\n", stderr);
    return 2;
  }
  quorvel::MainWindow window;
  window.show();
  quorvel::Watch watch(window);
  window.Start(input.toStdString());
  quorvel::MeasureGaps(watch);
  quorvel::MeasureYields(window, input.toStdString());
  quorvel::MeasureWordsAndLines(window);
  return 0;
}
