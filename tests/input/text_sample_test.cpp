#include "input/text_sample.h"

#include <gtest/gtest.h>

#include "input/docx_text.h"
#include "support/zip_builder.h"

namespace quorvel {

TEST(TextSample, IsTheBeginningOfTheText) {
  const std::string archive = ZipArchive({{BODY_ENTRY, "<w:t>to be or not</w:t>"}});
  const std::string page =
      "<!doctype html><title>Lost</title></head>>caf&eacute; \xC3\xA9t\xC3\xA9";
  const std::tuple<const char*, const char*, std::string, std::string> rows[] = {
      {"a long one, cut before it is repaired", "a.txt", "123456789\xC3\xA9", "123456789\xC3"},
      {"typographic punctuation", "a.txt", "be\u2014not", "be -- not"},
      {"a page", "a.html", page, " caf\xE9 \xE9t\xC3"},
      {"a document", "a.docx", archive, "to be or n"},
      {"a damaged one", "a.docx", WithField(archive, CENTRAL_RECORD, 16, 1, 4), ""},
      {"no archive", "a.docx", "PK\x03\x04 is how one begins", ""}};
  for (const auto& [name, file, bytes, expected] : rows) {
    EXPECT_EQ(TextSample({file, bytes}, 10), expected) << name;
  }
}

}  // namespace quorvel
