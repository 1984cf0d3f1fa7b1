// Walks over the XML of a word-processor document and collects its text.
//
// A table for each kind of document says what its elements mean. Elements that are not in the table
// are transparent: their contents count. The text is what a reader of the document sees, without
// deleted text and comments, and with each text box once.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "unicode/xml_reader.h"

namespace quorvel {

// The meaning of an element for the text.
enum class TextRole {
  text,           // its text counts
  paragraph,      // separated from others by a blank
  paragraphText,  // both
  properties,     // of a paragraph; a deletion in them joins the paragraph to the next one
  blank,
  hyphen,
  leftOut,       // left out with its contents
  deleted,       // left out too; see properties
  note,          // its text is added after the body, if notes are included
  alternatives,  // only the first alternative in it counts
  alternative,
  passed,  // transparent
};

inline constexpr std::size_t TEXT_ROLES = static_cast<std::size_t>(TextRole::passed) + 1;

struct TextRule {
  XmlName name;
  TextRole role;
};

// The rules for the parts of a DOCX document, and for the content of an ODT document.
[[nodiscard]] std::span<const TextRule> WordTextRules();
[[nodiscard]] std::span<const TextRule> OpenDocumentRules();

// A text that grows, with blanks only between two pieces.
struct GrowingText {
  std::string text;
  bool wantsBlank = false;

  // Appends a piece, after a blank if `wantsBlank` is set. An empty piece changes nothing.
  void Append(std::string_view piece);
};

// Receives the events of the XML. The pieces of a paragraph are joined without a separator, because
// a word may be split into several pieces.
class TextWalker {
 public:
  TextWalker(std::span<const TextRule> rules, bool withNotes)
      : rules_(rules), withNotes_(withNotes) {}

  // The events of the XML parser, in the order of the document.
  void Start(const XmlName& name);
  void End();
  void Text(std::string_view text);

  // Must be called before each part of a document.
  void BeginPart();

  // Returns the text of all parts, followed by the notes.
  [[nodiscard]] std::string Taken();

 private:
  [[nodiscard]] TextRole RoleOf(const XmlName& name) const;
  [[nodiscard]] int& OpenCount(TextRole role) {
    return openCounts_[static_cast<std::size_t>(role)];
  }
  [[nodiscard]] GrowingText& Target() { return OpenCount(TextRole::note) > 0 ? notes_ : body_; }

  // True when an element is left out. Must be called once for each: it chooses alternatives.
  [[nodiscard]] bool IsLeftOut(TextRole role);
  void Begin(TextRole role);
  void Finish(TextRole role);

  std::span<const TextRule> rules_;
  bool withNotes_;
  GrowingText body_;
  GrowingText notes_;
  std::vector<TextRole> open_;  // roles of the open elements, up to the first that is left out
  std::array<int, TEXT_ROLES> openCounts_{};
  std::size_t leftOut_ = 0;     // number of open elements from there on
  std::vector<bool> goesOn_;    // for each open paragraph: the next one belongs to it
  std::vector<bool> isChosen_;  // for each open choice: an alternative was taken
};

}  // namespace quorvel
