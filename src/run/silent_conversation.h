// A conversation for background work: it shows nothing, answers every question with its default,
// and is never stopped.
#pragma once

#include "run/conversation.h"

namespace quorvel {

class SilentConversation : public Conversation {
 public:
  void BeginPhase(std::string_view /*name*/) override {}
  void ShowBar(std::string_view /*caption*/) override {}
  void YieldNow() override {}
  void AppendOutput(std::string_view /*text*/) override {}
  void SetOutput(std::string_view /*text*/) override {}
  void SetLabel(Label /*label*/, std::string_view /*text*/) override {}
  void SayWhatIsShown(const ListingShown& /*listing*/) override {}
  void CountSeconds(bool /*counting*/) override {}
  Answer Ask(const Message& message) override { return message.preset; }
  void PopUp(std::string_view /*text*/) override {}
  void OfferStop(bool /*offered*/) override {}
};

}  // namespace quorvel
