// The settings panel: stop words, what counts as a word, and settings files.
//
// Each control changes one field of the settings, which the next run uses.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "run/session.h"

namespace Ui {
class SettingsPanel;
}

namespace quorvel {

// What the panel needs from the main window.
struct PanelHost {
  std::function<void()> takeControls;  // copy its own controls to the settings
  // Does work on a file that may take long.
  std::function<void(const std::string&, const std::function<void()>&)> work;
  std::function<void(bool modeSelected)> settingsReplaced;
  std::function<void()> clearStopWordsOutput;
  std::function<void()> quit;
};

class SettingsPanel : public QDialog {
  Q_OBJECT

 public:
  SettingsPanel(Session& session, Conversation& ui, PanelHost host, QWidget* parent);
  ~SettingsPanel() override;

  // Shows the settings in the panel's controls.
  void ShowSettings();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FillLists();
  void ConnectOptions();
  void ConnectButtons();

  void chkIgnoreLists_Click(bool ticked);
  void cmdSelectStopWordsFile_Click(int index);
  void cmdClearStopWordsFile_Click();
  void cmdListStopWords_Click();
  void cmdInitialize_Click();
  void cmdQuitProgram_Click();
  void txbStopWordsFile_LostFocus();
  void txbExtraStopWords_LostFocus();

  void SaveToFile();
  void LoadFromFile();
  void FocusCloseButton();
  [[nodiscard]] bool HasStopWords();
  void StayAt(QWidget& control);

  Session& session_;
  Conversation& conversation_;
  PanelHost host_;
  std::unique_ptr<Ui::SettingsPanel> ui_;
  bool showing_ = false;  // the controls are being set, not used
};

}  // namespace quorvel
