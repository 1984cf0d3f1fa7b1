// A conversation for tests. It records what a run said, and answers from a list.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "run/conversation.h"

namespace quorvel {

struct ScriptedConversation : Conversation {
  std::vector<Answer> answers;  // given in turn, then the preset of each question
  int stopAtYield = 0;          // the 1-based call of YieldNow that requests a stop, or 0

  std::string output;             // the current content of the output box
  std::vector<std::string> bars;  // each caption of the progress bar
  ListingShown listingShown;      // the last one
  std::vector<Message> questions;
  int yields = 0;
  // The calls in their order, one line for each, with the first line of its text.
  std::string log;
  std::map<std::string, std::function<void()>> events;  // called at such a line

  // Every question so far as "title: text" and a line feed, with "@" for `path`.
  [[nodiscard]] std::string Said(std::string_view path = "@") const {
    std::string said;
    for (const Message& message : questions) {
      said += message.title + ": " + message.text + "\n";
      const std::size_t place = said.rfind(path);
      if (!path.empty() && place != std::string::npos) said.replace(place, path.size(), "@");
    }
    return said;
  }

  void AppendOutput(std::string_view text) override {
    Note("+ ", text);
    output += text;
  }

  void SetOutput(std::string_view text) override {
    Note("= ", text);
    output = text;
  }

  void SetLabel(Label /*label*/, std::string_view text) override { Note("label ", text); }

  void ShowBar(std::string_view caption) override { bars.emplace_back(caption); }

  void CountSeconds(bool isCounting) override { Note("counting ", isCounting ? "on" : "off"); }

  void SayWhatIsShown(const ListingShown& listing) override { listingShown = listing; }

  Answer Ask(const Message& message) override {
    Note("asks ", message.title);
    questions.push_back(message);
    const std::size_t asked = questions.size();
    return asked <= answers.size() ? answers[asked - 1] : message.preset;
  }

  void PopUp(std::string_view text) override { Note("pops up ", text); }

  void OfferStop(bool offered) override { Note("stop ", offered ? "on" : "off"); }

  void YieldNow() override {
    if (++yields == stopAtYield) RequestStop();
  }

 private:
  void Note(std::string_view what, std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    const std::string line = std::string(what).append(text.substr(0, text.find('\r')));
    log += line + '\n';
    if (const auto event = events.find(line); event != events.end()) event->second();
  }
};

}  // namespace quorvel
