// The settings panel: stop words, what counts as a word, and settings files.
//
// Each control keeps one field of the settings, which the next run reads.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "engine/run_state.h"
#include "util/user_interface.h"

namespace Ui {
class SettingsPanel;
}

namespace quorvel {

// What the panel wants of the main window.
struct PanelHost {
  std::function<void()> takeControls;  // put its own controls into the settings
  std::function<void(const std::string& path)> readStopWords;
  std::function<bool()> prepareStopWords;  // see to it that they are those of the settings
  std::function<void(bool modeSelected)> settingsReplaced;
  std::function<void()> clearStopWordsOutput;
  std::function<void()> quit;
};

class SettingsPanel : public QDialog {
  Q_OBJECT

 public:
  SettingsPanel(RunState& state, UserInterface& ui, PanelHost host, QWidget* parent);
  ~SettingsPanel() override;

  // Puts the settings into the panel's controls.
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
  void cmdSaveLoadState_Click(int index);
  void cmdQuitProgram_Click();
  void txbStopWordsFile_LostFocus();
  void txbExtraStopWords_LostFocus();

  void SaveToFile();
  void LoadFromFile();
  void FocusCloseButton();
  void StayAt(QWidget& control);

  RunState& state_;
  UserInterface& userInterface_;
  PanelHost host_;
  std::unique_ptr<Ui::SettingsPanel> ui_;
  bool showing_ = false;  // the controls are being set, not used
};

}  // namespace quorvel
