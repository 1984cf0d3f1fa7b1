// The walk over the XML of a word-processor document, of either kind, to its text.
//
// Which elements mean what stands in one table for each kind; what is in no table is passed, and
// what it holds counts. Text is what a reader of the document sees: not what was deleted, nor the
// comments of others, and a text box once.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "unicode/xml_reader.h"

namespace quorvel {

// What an element means for the text.
enum class TextRole {
  text,           // what stands in it counts
  paragraph,      // a blank separates it from others
  paragraphText,  // both
  properties,     // of a paragraph, which is said to go on in the next one by a deletion in them
  blank,
  hyphen,
  leftOut,       // with all that it holds
  deleted,       // the same; see properties
  note,          // what stands in it comes behind the text, if it is wanted
  alternatives,  // one of the following counts, the first
  alternative,
  passed,  // none of these
};

inline constexpr std::size_t TEXT_ROLES = static_cast<std::size_t>(TextRole::passed) + 1;

struct TextRule {
  XmlName name;
  TextRole role;
};

// The rules for the parts of a DOCX document, and for the content of an ODT document.
[[nodiscard]] std::span<const TextRule> WordTextRules();
[[nodiscard]] std::span<const TextRule> OpenDocumentRules();

// A text that grows. A blank is put only between two pieces.
struct GrowingText {
  std::string text;
  bool wantsBlank = false;

  void Append(std::string_view piece);
};

// Takes the events of the XML. Pieces of one paragraph are joined with nothing between them, so
// that a word in several pieces stays one.
class TextWalker {
 public:
  TextWalker(std::span<const TextRule> rules, bool withNotes)
      : rules_(rules), withNotes_(withNotes) {}

  void Start(const XmlName& name);
  void End();
  void Text(std::string_view text);

  // To be called before each part of a document.
  void BeginPart();

  // The text of all that was walked over, its notes behind it.
  [[nodiscard]] std::string Taken();

 private:
  [[nodiscard]] TextRole RoleOf(const XmlName& name) const;
  [[nodiscard]] int& OpenCount(TextRole role) {
    return openCounts_[static_cast<std::size_t>(role)];
  }
  [[nodiscard]] GrowingText& Target() { return OpenCount(TextRole::note) > 0 ? notes_ : body_; }

  [[nodiscard]] bool IsLeftOut(TextRole role);
  void Begin(TextRole role);
  void Finish(TextRole role);

  std::span<const TextRule> rules_;
  bool withNotes_;
  GrowingText body_;
  GrowingText notes_;
  std::vector<TextRole> open_;  // the roles of the open elements, ...
  std::array<int, TEXT_ROLES> openCounts_{};
  std::size_t leftOut_ = 0;     // ... up to one that is left out, which adds to this
  std::vector<bool> goesOn_;    // of each open paragraph: whether the next one belongs to it
  std::vector<bool> isChosen_;  // of each open choice: whether one was taken
};

}  // namespace quorvel
