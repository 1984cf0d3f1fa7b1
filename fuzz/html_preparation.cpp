// Prepares web pages, with and without their lists.

#include "fuzz_input.h"
#include "input/compact_spaces.h"
#include "input/entities.h"
#include "input/file_kind.h"
#include "input/html_text.h"
#include "naive/naive_forms.h"
#include "naive/naive_html.h"
#include "util/ascii.h"

namespace quorvel::fuzz {
namespace {

// The result for a page with a document type and a head, by the naive forms of the steps.
std::string PreparedNaively(std::string page, bool isUtf8, bool ignoreLists) {
  const bool needsRepair = !isUtf8 && DeclaresUtf8(page);
  page.erase(0, LowerAscii(page).find("</head>") + 7);
  if (needsRepair) page = naive::PlainPunctuation(naive::RepairUtf8(page));
  page = ignoreLists ? naive::StripTagsAndLists(page, true) : naive::StripTags(page);
  CompactSpaces(page);
  return naive::DecodeEntities(page);
}

void CheckPreparation(const std::string& page, bool isUtf8, bool ignoreLists) {
  const std::string lower = LowerAscii(page);
  const auto holds = [&lower](const char* part) { return lower.find(part) != std::string::npos; };
  HtmlOutcome expected = HtmlOutcome::notAPage;
  if (holds("<!doctype") && holds("html")) {
    expected = holds("</head>") ? HtmlOutcome::prepared : HtmlOutcome::noHead;
  }
  SilentProgress nobody;
  std::string text = page;
  Require(PrepareHtmlText(text, isUtf8, ignoreLists, nobody) == expected, "a page is recognized");
  const bool prepared = expected == HtmlOutcome::prepared;
  RequireSame(text, prepared ? PreparedNaively(page, isUtf8, ignoreLists) : page,
              "PrepareHtmlText equals its naive form");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const bool isUtf8 = input.Flag();
  const std::string page = input.Rest();
  for (const bool ignoreLists : {false, true}) CheckPreparation(page, isUtf8, ignoreLists);
  std::string text = page;
  StripTags(text);
  RequireSame(text, naive::StripTags(page), "StripTags equals its naive form");
  text = page;
  StripTagsAndLists(text, false);
  RequireSame(text, naive::StripTagsAndLists(page, false),
              "StripTagsAndLists equals its naive form");
  text = page;
  DecodeEntities(text);
  RequireSame(text, naive::DecodeEntities(page), "DecodeEntities equals its naive form");
  return 0;
}

}  // namespace quorvel::fuzz
