// A user interface for work that the user need not hear of: nobody listens, every
// question gets its preset answer, and no button is pressed.
#pragma once

#include "util/user_interface.h"

namespace quorvel {

class SilentInterface : public UserInterface {
 public:
  void AppendOutput(std::string_view /*text*/) override {}
  void SetOutput(std::string_view /*text*/) override {}
  void SetLabel(Label /*label*/, std::string_view /*text*/) override {}
  Answer Ask(const Message& message) override { return message.preset; }
  void PopUp(std::string_view /*text*/) override {}
  void OfferStop(bool /*offered*/) override {}
  void YieldNow() override {}
};

}  // namespace quorvel
