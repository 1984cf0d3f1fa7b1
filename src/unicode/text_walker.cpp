#include "unicode/text_walker.h"

#include <algorithm>

namespace quorvel {
namespace {

constexpr std::string_view WORD = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr std::string_view STRICT_WORD = "http://purl.oclc.org/ooxml/wordprocessingml/main";
constexpr std::string_view COMPATIBILITY =
    "http://schemas.openxmlformats.org/markup-compatibility/2006";
constexpr std::string_view OFFICE = "urn:oasis:names:tc:opendocument:xmlns:office:1.0";
constexpr std::string_view TEXT = "urn:oasis:names:tc:opendocument:xmlns:text:1.0";
constexpr std::string_view DRAWING = "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0";
constexpr std::string_view SVG = "urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0";

// "tab" elements also occur inside "tabs", where they define tab stops and are no text.
constexpr std::array WORD_RULES = {
    TextRule{{WORD, "t"}, TextRole::text},
    TextRule{{WORD, "p"}, TextRole::paragraph},
    TextRule{{WORD, "pPr"}, TextRole::properties},
    TextRule{{WORD, "tab"}, TextRole::blank},
    TextRule{{WORD, "ptab"}, TextRole::blank},
    TextRule{{WORD, "br"}, TextRole::blank},
    TextRule{{WORD, "cr"}, TextRole::blank},
    TextRule{{WORD, "noBreakHyphen"}, TextRole::hyphen},
    TextRule{{WORD, "tabs"}, TextRole::leftOut},
    TextRule{{WORD, "del"}, TextRole::deleted},
    TextRule{{WORD, "moveFrom"}, TextRole::deleted},
    TextRule{{COMPATIBILITY, "AlternateContent"}, TextRole::alternatives},
    TextRule{{COMPATIBILITY, "Choice"}, TextRole::alternative},
    TextRule{{COMPATIBILITY, "Fallback"}, TextRole::alternative},
};

// "text:s" stands for several blanks, which are compacted to one later.
constexpr std::array OPEN_DOCUMENT_RULES = {
    TextRule{{TEXT, "p"}, TextRole::paragraphText},
    TextRule{{TEXT, "h"}, TextRole::paragraphText},
    TextRule{{TEXT, "tab"}, TextRole::blank},
    TextRule{{TEXT, "s"}, TextRole::blank},
    TextRule{{TEXT, "line-break"}, TextRole::blank},
    TextRule{{TEXT, "note"}, TextRole::note},
    TextRule{{TEXT, "note-citation"}, TextRole::leftOut},
    TextRule{{TEXT, "tracked-changes"}, TextRole::leftOut},
    TextRule{{OFFICE, "annotation"}, TextRole::leftOut},
    TextRule{{OFFICE, "binary-data"}, TextRole::leftOut},
    TextRule{{OFFICE, "forms"}, TextRole::leftOut},
    TextRule{{DRAWING, "object"}, TextRole::leftOut},
    TextRule{{DRAWING, "object-ole"}, TextRole::leftOut},
    TextRule{{SVG, "title"}, TextRole::leftOut},
    TextRule{{SVG, "desc"}, TextRole::leftOut},
};

bool IsParagraph(TextRole role) {
  return role == TextRole::paragraph || role == TextRole::paragraphText;
}

}  // namespace

std::span<const TextRule> WordTextRules() { return WORD_RULES; }

std::span<const TextRule> OpenDocumentRules() { return OPEN_DOCUMENT_RULES; }

void GrowingText::Append(std::string_view piece) {
  if (piece.empty()) return;
  if (wantsBlank && !text.empty()) text += ' ';
  wantsBlank = false;
  text += piece;
}

TextRole TextWalker::RoleOf(const XmlName& name) const {
  const std::string_view space = name.space == STRICT_WORD ? WORD : name.space;
  const auto rule = std::find_if(rules_.begin(), rules_.end(), [&](const TextRule& one) {
    return one.name.local == name.local && one.name.space == space;
  });
  return rule == rules_.end() ? TextRole::passed : rule->role;
}

bool TextWalker::IsLeftOut(TextRole role) {
  if (role == TextRole::note) return !withNotes_;
  if (role != TextRole::alternative) return role == TextRole::leftOut || role == TextRole::deleted;
  if (isChosen_.empty()) return false;
  const bool isSecond = isChosen_.back();
  isChosen_.back() = true;
  return isSecond;
}

void TextWalker::Start(const XmlName& name) {
  if (leftOut_ > 0) {
    ++leftOut_;
    return;
  }
  const TextRole role = RoleOf(name);
  if (role == TextRole::deleted && OpenCount(TextRole::properties) > 0 && !goesOn_.empty()) {
    goesOn_.back() = true;
  }
  if (IsLeftOut(role)) {
    leftOut_ = 1;
    return;
  }
  open_.push_back(role);
  ++OpenCount(role);
  Begin(role);
}

void TextWalker::Begin(TextRole role) {
  if (IsParagraph(role)) {
    if (!goesOn_.empty()) Target().wantsBlank = true;
    goesOn_.push_back(false);
  } else if (role == TextRole::blank) {
    Target().wantsBlank = true;
  } else if (role == TextRole::hyphen) {
    Target().Append("-");
  } else if (role == TextRole::alternatives) {
    isChosen_.push_back(false);
  }
}

void TextWalker::End() {
  if (leftOut_ > 0) {
    --leftOut_;
    return;
  }
  const TextRole role = open_.back();
  Finish(role);
  --OpenCount(role);
  open_.pop_back();
}

void TextWalker::Finish(TextRole role) {
  if (IsParagraph(role)) {
    if (!goesOn_.back()) Target().wantsBlank = true;
    goesOn_.pop_back();
  } else if (role == TextRole::alternatives) {
    isChosen_.pop_back();
  }
}

void TextWalker::Text(std::string_view text) {
  if (leftOut_ > 0) return;
  const bool counts = OpenCount(TextRole::text) + OpenCount(TextRole::paragraphText) > 0;
  if (counts) Target().Append(text);
}

void TextWalker::BeginPart() {
  open_.clear();
  openCounts_.fill(0);
  leftOut_ = 0;
  goesOn_.clear();
  isChosen_.clear();
  body_.wantsBlank = true;
}

std::string TextWalker::Taken() {
  if (!notes_.text.empty()) {
    body_.wantsBlank = true;
    body_.Append(notes_.text);
  }
  notes_ = {};
  return std::move(body_.text);
}

}  // namespace quorvel
