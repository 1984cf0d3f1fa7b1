#include "ui/window_interface.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "ui/find_bar.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class Conversations : public WindowTest {
 protected:
  [[nodiscard]] ConversationControls Controls() const {
    const auto label = [this](const char* name) { return window_->findChild<QLabel*>(name); };
    return {.window = window_.get(),
            .output = window_->findChild<QPlainTextEdit*>("txbOutput"),
            .stopButton = window_->findChild<QPushButton*>("cmdListWords"),
            .outputFileBox = window_->findChild<QWidget*>("txbFile_3"),
            .labels = {label("lblNumberOfWords"), label("lblNumOccurrences"),
                       label("lblKeywordsFound")},
            .progressBar = label("lblTotalNumOccurrences"),
            .busyIndicator = label("lblTwirler"),
            .timeElapsed = label("lblTimeElapsed"),
            .listingShown = label("lblListingShown"),
            .findBar = window_->findChild<FindBar*>()};
  }
};

TEST_F(Conversations, CountTheSecondsThatNoMessageTakes) {
  constexpr int LONG_MS = 2100;
  Open();
  WindowInterface interface(Controls());
  interface.CountSeconds(true);
  interface.NoteWordsFound(1234);
  ExpectSoon([this] { return Text("lblNumberOfWords") == "Number of words: 1,234"; });
  interface.NoteWordsFound(2345);
  QElapsedTimer shown;
  Box message = Tells("Title", "text");
  message.ready = [&shown] {
    if (!shown.isValid()) shown.start();
    return shown.elapsed() > LONG_MS;
  };
  Do("message", {message}, [&interface] { interface.Tell("text", "Title"); });
  EXPECT_EQ(Text("lblNumberOfWords") + Text("lblTimeElapsed"), "Number of words: 1,234");
  ExpectSoon([this] { return Text("lblTimeElapsed") == "Time elapsed: 3s"; });
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 2,345");
}

}  // namespace
}  // namespace quorvel
