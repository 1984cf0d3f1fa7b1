#include "input/text_sample.h"

#include <optional>

#include "input/document_text.h"
#include "input/docx_text.h"
#include "input/entities.h"
#include "input/file_system.h"
#include "input/html_text.h"
#include "input/path_names.h"
#include "input/utf8_repair.h"
#include "util/ansi.h"
#include "util/silent_interface.h"

namespace quorvel {
namespace {

std::string BodyOfWordDocument(const std::string& path) {
  SilentInterface ui;
  ExtractOptions options;
  options.askOnBadChecksum = false;
  options.askOnBigFile = false;
  return ExtractDocumentText(path, "QVL", options, ui).text;
}

std::string BodyOfPage(const std::string& path) {
  std::string page = ReadFileBytes(path).bytes;
  bool isUtf8 = false;
  const std::optional<std::size_t> body = FindHtmlBody(page, isUtf8);
  if (!body) return page;
  page.erase(0, *body);
  StripTags(page);
  DecodeEntities(page);
  return page;
}

}  // namespace

std::u16string TextSample(const std::string& path, std::size_t length) {
  std::string text;
  if (!IsRegularFile(path)) return {};
  if (IsWordDocument(path)) {
    text = BodyOfWordDocument(path);
  } else {
    text = PathNamesHtml(path) ? BodyOfPage(path) : ReadFileBytes(path, length).bytes;
  }
  if (text.size() > length) text.resize(length);
  RepairUtf8(text);
  PlainPunctuation(text);
  return DecodeAnsi(text);
}

}  // namespace quorvel
