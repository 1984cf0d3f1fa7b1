#include "engine/index_file.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"

namespace quorvel {
namespace {

TEST(IndexFile, IsReadWholeOrNotAtAll) {
  SilentProgress nobody;
  const Listing listing =
      ScanText(u"the dogs' well-known house, the dogs of the house.", {}, nobody);
  const std::string bytes = IndexFileBytes(*listing.words, "digest", 0);
  for (std::size_t length = 0; length <= bytes.size(); ++length) {
    const auto table = TableOfIndexFile(std::string_view(bytes).substr(0, length));
    EXPECT_EQ(table.has_value(), length == bytes.size() || length + 2 == bytes.size()) << length;
  }
  const std::string good = "the*0*3*0*043259";
  const std::string more = "\r\nzoo*0*1*0*44";
  for (const std::string& entries : {good, good + more, good + "\r\nnone"}) {
    const auto table = TableOfIndexFile("\r\n\r\n1\r\n2\r\n1\r\n" + entries);
    EXPECT_TRUE(table && table->WordCount() == 1) << entries;
  }
  const std::pair<const char*, std::string> rows[] = {
      {"1", "the*0*0*0*"},       {"1", "the*0*3*0*043232"},
      {"1", "the*0*3*0*325932"}, {"1", "the*0*3*0*003259"},
      {"1000000", good},         {"-1", good},
      {"99999999999", good},     {"", good}};
  for (const auto& [count, entry] : rows) {
    EXPECT_FALSE(TableOfIndexFile("\r\n\r\n" + (count + ("\r\n2\r\n1\r\n" + entry))))
        << count << entry;
  }
}

// Every word short, and there once: no text has a longer index.
TEST(IndexFile, IsNeverLongerThanItsTextAllows) {
  std::u16string text;
  for (int i = 0; i < 26 * 26 * 26; ++i) {
    for (const int letter : {i / 26 / 26, i / 26 % 26, i % 26})
      text += static_cast<char16_t>(u'a' + letter);
    text += u' ';
  }
  SilentProgress nobody;
  for (const std::size_t length : {std::size_t{3}, std::size_t{40}, text.size()}) {
    const Listing listing = ScanText(text.substr(0, length), {}, nobody);
    const std::string bytes = IndexFileBytes(*listing.words, std::string(32, 'A'), 0);
    EXPECT_LE(bytes.size(), LongestIndexFile(length));
    EXPECT_GE(bytes.size() * 4, LongestIndexFile(length)) << "so the bound is no empty one";
  }
}

}  // namespace
}  // namespace quorvel
