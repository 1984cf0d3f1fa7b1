// Tests use the real window by the names of its controls, with real keys and clicks.
#pragma once

#include <gtest/gtest.h>

#include "support/test_folder.h"
#include "ui/boxes.h"
#include "ui/main_window.h"

namespace quorvel {

inline constexpr const char* HARBOUR =
    "The old harbour was silent now.\r\nThe old harbour was silent too.\r\n";

// The beginning of its concordance with the settings of a first start.
inline constexpr const char* HARBOUR_ENTRY =
    "[harbour 2]\n"
    "...  old «harbour» was silent now. The old «harbour» was silent\n"
    "... was silent now. The old «harbour» was silent \n"
    "\n[old 2]\n";

// Each test is a new user who starts the program for the first time. Every action waits for these
// boxes, in this order, and answers them.
class WindowTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  WindowTest();

  // Starts the program again, like its main function.
  void Open(const std::string& path = {}, const BoxList& boxes = {});
  // The same with a new input, whose path is returned.
  std::string OpenText(const std::string& name, const std::string& bytes = HARBOUR);

  void Do(const std::string& name, const BoxList& boxes, const std::function<void()>& act);
  void Click(const std::string& control, const BoxList& boxes = {});
  void Press(QKeyCombination keys, const BoxList& boxes = {});
  // Replaces the text of a text box, and stays in it.
  void TypeInto(const std::string& control, const std::string& text);
  // The same, and leaves the box with the key `end`.
  void Type(const std::string& control, const std::string& text, const BoxList& boxes = {},
            Qt::Key end = Qt::Key_Tab);
  void Choose(const std::string& list, const std::string& item, const BoxList& boxes = {});
  void Drop(const std::string& path, const BoxList& boxes = {});
  void List() { Click("cmdListWords", {WritesConcordance()}); }
  void Search() { Click("optSearch", {WantsKeywords()}); }

  // Throws if no such control is visible.
  [[nodiscard]] QWidget& Control(const std::string& name) const;
  [[nodiscard]] bool Shown(const std::string& name) const;
  // The text of a control, or the chosen entry of a list, without mnemonics. A visible control is
  // preferred, because the viewer has a find bar too.
  [[nodiscard]] std::string Text(const std::string& name) const;
  [[nodiscard]] std::string Texts(const Names& names) const;
  // The controls that are "enabled" or "checked", each followed by a blank.
  [[nodiscard]] std::string Which(const char* property, const Names& names) const;
  // Fails if a control that can have the focus has no name for screen readers, or if two controls
  // of a window have the same name.
  static void ExpectNames(const QWidget& window);
  static void ExpectSoon(const std::function<bool()>& condition);

  [[nodiscard]] static Box LoadsStopWords();
  [[nodiscard]] static Box WantsKeywords();
  [[nodiscard]] static Box OffersKeywords(const char* button);
  [[nodiscard]] static Box WritesConcordance() { return PopsUp("Concordance file written"); }

  TestFolder folder_;
  Boxes boxes_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace quorvel
