#include "run/waiting.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

TEST(Waiting, LetsEventsRunBetweenTwoLooksUntilAStop) {
  for (const bool stops : {false, true}) {
    ScriptedConversation ui;
    ui.stopAtYield = stops ? 2 : 0;
    std::string looksAndEvents;
    const auto isThere = [&](std::chrono::milliseconds /*patience*/) {
      looksAndEvents += std::to_string(ui.yields);
      return ui.yields == 3;
    };
    EXPECT_EQ(WaitUntil(isThere, ui), !stops);
    EXPECT_EQ(looksAndEvents, stops ? "01" : "0123");
  }
}

}  // namespace
}  // namespace quorvel
