#include "engine/divided_scan.h"

#include <gtest/gtest.h>

#include <thread>

#include "support/latin.h"
#include "support/made_texts.h"
#include "support/scripted_conversation.h"
#include "util/worker_pool.h"

namespace quorvel {
namespace {

using Text = std::u16string;

std::string Describe(const WordTable& table) {
  std::ostringstream all;
  for (const WordEntry& entry : table.entries) {
    all << testing::PrintToString(entry.word) << testing::PrintToString(entry.sortKey);
    for (const Position position : entry.positions) all << ' ' << IndexOf(position);
  }
  return all.str();
}

TEST(DividedScan, FindsTheSameInAnyNumberOfPieces) {
  const std::vector<std::vector<Text>> parts = {
      {u"harbour ", u"Harbour", u"boats ", u"-", u"'s ", u". ", u"sea", u"1990s", u" "},
      {u"é", u"sea", u"É", u"ship. ", u"abcdefghijklmnopqrstuvwxyz", u"s"},
      {u"sea ", u"\U00010330", u"\U0001F600", u"\u0301", u"\xD800", u"\xDF30", u" ", u"ship"}};
  const KeywordLists keywords = {{u"sea", u"ship"}, {}};
  SilentProgress nobody;
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    const Alphabet& alphabet = round % 2 == 0 ? latin : Alphabet::Unicode();
    const KeywordLists* sought = round % 5 == 0 ? &keywords : nullptr;
    const Text text = RandomText(parts[random() % 3], round % 20 == 0 ? 1000 : 60, random);
    const std::string whole =
        Describe(ScanPieces(text, {{0, text.size()}}, alphabet, sought, nobody));
    for (const std::size_t count : {1, 2, 3, 7, 64}) {
      const std::vector<TextSpan> pieces = PiecesOfText(text, alphabet, count);
      std::size_t end = 0;
      for (const TextSpan& piece : pieces) {
        ASSERT_EQ(piece.begin, end);
        end = piece.end;
      }
      ASSERT_EQ(end, text.size());
      ASSERT_LE(pieces.size(), count);
      ASSERT_EQ(Describe(ScanPieces(text, pieces, alphabet, sought, nobody)), whole)
          << count << " pieces of " << testing::PrintToString(text);
    }
  }
}

TEST(DividedScan, CutsPiecesOfAboutTheSameLength) {
  EXPECT_EQ(BestPieceCount(0), 1U);
  EXPECT_EQ(BestPieceCount((std::size_t{2} << 18U) - 1), 1U);
  EXPECT_EQ(BestPieceCount(std::size_t{2} << 18U), std::min(Processors(), 2U));
  EXPECT_EQ(BestPieceCount(std::size_t{1} << 30U), Processors());
  Text text;
  for (int i = 0; i < 7000; ++i) text += u"harbour ";
  const std::vector<TextSpan> pieces = PiecesOfText(text, latin, 7);
  ASSERT_EQ(pieces.size(), 7U);
  for (const TextSpan& piece : pieces) {
    EXPECT_LE(piece.end - piece.begin, text.size() / 7 + 8);
  }
}

// Only the thread of the front end may talk to the user.
class ProgressOfOneThread : public SilentProgress {
 public:
  void YieldNow() override { EXPECT_EQ(std::this_thread::get_id(), owner_); }

 private:
  std::thread::id owner_ = std::this_thread::get_id();
};

TEST(DividedScan, LetsEventsRunInTheCallingThreadAlone) {
  const Text text(2000000, u' ');
  const KeywordLists keywords = {{u"sea"}, {}};
  ProgressOfOneThread progress;
  for (const KeywordLists* sought : {static_cast<const KeywordLists*>(nullptr), &keywords}) {
    (void)ScanPieces(text, PiecesOfText(text, latin, 3), latin, sought, progress);
  }
}

// A stop in the first piece or while waiting for the others ends all of them.
TEST(DividedScan, EndsAllPiecesAtAStop) {
  Text text;
  for (int i = 0; i < 3000000; ++i) text += u"harbour ";
  for (const std::size_t firstEnd : {text.size() / 2, std::size_t{7}}) {
    ScriptedConversation user;
    user.stopAtYield = 1;
    const WordTable table =
        ScanPieces(text, {{0, firstEnd}, {firstEnd, text.size()}}, latin, nullptr, user);
    EXPECT_TRUE(user.StopRequested());
    ASSERT_EQ(table.WordCount(), 1);
    EXPECT_LT(table.entries.front().Count(), 2000000);
  }
}

}  // namespace
}  // namespace quorvel
