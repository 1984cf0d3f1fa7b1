#include "run/waiting.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"

namespace quorvel {

TEST(Waiting, LetsEventsRunAndEndsAtAStop) {
  ScriptedConversation ui;
  ui.stopAtYield = 3;
  EXPECT_FALSE(WaitUntil([](auto /*patience*/) { return false; }, ui));
  ui.ClearStop();
  int asked = 0;
  EXPECT_TRUE(WaitUntil([&asked](auto /*patience*/) { return ++asked == 2; }, ui));
}

}  // namespace quorvel
