#include "input/text_sample.h"

#include <algorithm>
#include <optional>

#include "files/path_names.h"
#include "input/document.h"
#include "input/docx_text.h"
#include "input/entities.h"
#include "input/html_text.h"
#include "input/utf8_repair.h"

namespace quorvel {
namespace {

std::string BodyOfPage(std::string page) {
  bool isUtf8 = false;
  const std::optional<std::size_t> body = FindHtmlBody(page, isUtf8);
  if (!body) return page;
  page.erase(0, *body);
  StripTags(page);
  DecodeEntities(page);
  return page;
}

}  // namespace

std::string TextSample(const InputBytes& input, std::size_t length) {
  std::string text;
  if (IsWordDocument(input)) {
    text = TextOfIntactDocument(input);
  } else if (PathNamesHtml(input.Path())) {
    text = BodyOfPage(std::string(input.View()));
  } else {
    text = input.View().substr(0, length);
  }
  text.resize(std::min(text.size(), length));
  RepairUtf8(text);
  PlainPunctuation(text);
  return text;
}

}  // namespace quorvel
