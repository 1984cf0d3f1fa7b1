// The program's window, driven by the names of its controls with real keys and clicks.
#pragma once

#include <gtest/gtest.h>

#include "support/test_folder.h"
#include "ui/boxes.h"
#include "ui/main_window.h"

namespace quorvel {

inline constexpr const char* HARBOUR =
    "The old harbour was silent now.\r\nThe old harbour was silent too.\r\n";

// How its concordance begins at the settings of a first start.
inline constexpr const char* HARBOUR_ENTRY =
    "[harbour 2]\n"
    "...  old «harbour» was silent now. The old «harbour» was silent\n"
    "... was silent now. The old «harbour» was silent \n"
    "\n[old 2]\n";

// Each test is a user of their own, who starts the program for the first time. Every action waits
// for the boxes that it brings, in this order, and answers them.
class WindowTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  WindowTest();

  // Starts the program as its main function does, instead of the one that runs.
  void Open(const std::string& path = {}, const BoxList& boxes = {});
  // The same with a new input, whose path is returned.
  std::string OpenText(const std::string& name, const std::string& bytes = HARBOUR);

  void Do(const std::string& name, const BoxList& boxes, const std::function<void()>& act);
  void Click(const std::string& control, const BoxList& boxes = {});
  void Press(QKeyCombination keys, const BoxList& boxes = {});
  // Replaces what stands in a text box, and leaves it by `end`.
  void Type(const std::string& control, const std::string& text, const BoxList& boxes = {},
            Qt::Key end = Qt::Key_Tab);
  void Choose(const std::string& list, const std::string& item, const BoxList& boxes = {});
  void Drop(const std::string& path, const BoxList& boxes = {});
  void List() { Click("cmdListWords", {WritesConcordance()}); }
  void Search() { Click("optSearch", {WantsKeywords()}); }

  // Throws when none is visible.
  [[nodiscard]] QWidget& Control(const std::string& name) const;
  [[nodiscard]] bool Shown(const std::string& name) const;
  // Its text, of a list the one that is chosen; without mnemonics.
  [[nodiscard]] std::string Text(const std::string& name) const;
  [[nodiscard]] std::string Texts(const Names& names) const;
  // Those that are "enabled" or "checked", each with a blank behind it.
  [[nodiscard]] std::string Which(const char* property, const Names& names) const;
  // Fails on a control that takes the keys but that a screen reader has no name for, and on two of
  // one window with the same name.
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
