#include "input/html_text.h"

#include <algorithm>
#include <array>

#include "input/compact_spaces.h"
#include "input/entities.h"
#include "input/file_kind.h"
#include "input/utf8_repair.h"

// Compatibility: users' listings and index files depend on these rules. Element names match as
// prefixes: "<style" also matches "<stylesheet>", and "<ul" matches "<ulink>". Inside a skipped
// element only its own closing tag is searched for, so that a script may contain any mark-up.
// Inside a list, nested lists of the same kind are counted, and lists of the other kind are not.

namespace quorvel {
namespace {

constexpr std::string_view HEAD_END = "</head>";
constexpr std::string_view LIST_MARK = " // ";

enum class ListRule { keep, drop, mark };

// An element that is dropped with its contents.
struct SkippedElement {
  std::string_view name;
  bool isList;
};

constexpr std::array<SkippedElement, 5> SKIPPED_ELEMENTS = {
    {{"script", false}, {"noscript", false}, {"style", false}, {"ul", true}, {"ol", true}}};

// True when `ch` equals `lower`, ignoring the case of A to Z.
bool SameIgnoringCase(char ch, char lower) {
  return ch == lower || (ch >= 'A' && ch <= 'Z' && ch - 'A' + 'a' == lower);
}

// True when `lower` stands at the 0-based index `place` of the text, in any case.
bool StandsAt(std::string_view text, std::size_t place, std::string_view lower) {
  const std::string_view part = text.substr(std::min(place, text.size()), lower.size());
  return std::equal(part.begin(), part.end(), lower.begin(), lower.end(), SameIgnoringCase);
}

// The 0-based index of the first occurrence of `lower` in the text, in any case, or npos.
std::size_t FindIgnoringCase(std::string_view text, std::string_view lower) {
  const auto* const found =
      std::search(text.begin(), text.end(), lower.begin(), lower.end(), SameIgnoringCase);
  return found == text.end() ? std::string_view::npos
                             : static_cast<std::size_t>(found - text.begin());
}

bool Holds(std::string_view text, std::string_view lower) {
  return FindIgnoringCase(text, lower) != std::string_view::npos;
}

// The skipped element whose name stands at `place`, after a "<", or null.
const SkippedElement* ElementAt(std::string_view text, std::size_t place, ListRule lists) {
  for (const SkippedElement& element : SKIPPED_ELEMENTS) {
    if (element.isList && lists == ListRule::keep) continue;
    if (StandsAt(text, place, element.name)) return &element;
  }
  return nullptr;
}

// The index after the name in the closing tag of an element whose own name stands at `place`, or
// npos when the element is never closed.
std::size_t EndOfElement(std::string_view text, std::size_t place, const SkippedElement& element) {
  std::size_t depth = 1;
  for (std::size_t mark = text.find('<', place); mark != std::string_view::npos;
       mark = text.find('<', mark + 1)) {
    if (StandsAt(text, mark + 1, element.name)) {
      if (element.isList) ++depth;
    } else if (StandsAt(text, mark + 1, "/") && StandsAt(text, mark + 2, element.name)) {
      if (--depth == 0) return mark + 2 + element.name.size();
    }
  }
  return std::string_view::npos;
}

// Removes tags and skipped elements. The output is never longer than the input read so far, so it
// is written in place.
void RemoveMarkup(std::string& text, ListRule lists) {
  std::size_t out = 0;
  bool copying = false;
  for (std::size_t in = 0; in < text.size();) {
    const char ch = text[in++];
    if (ch == '>') {
      copying = true;
      text[out++] = ' ';
    } else if (ch != '<') {
      if (copying) text[out++] = ch;
    } else {
      copying = false;
      const SkippedElement* const element = ElementAt(text, in, lists);
      if (element == nullptr) continue;
      in = EndOfElement(text, in, *element);
      if (in == std::string::npos) break;
      if (element->isList && lists == ListRule::mark) {
        out += LIST_MARK.copy(text.data() + out, LIST_MARK.size());
      }
    }
  }
  text.resize(out);
}

}  // namespace

std::optional<std::size_t> FindHtmlBody(std::string_view page, bool& isUtf8) {
  isUtf8 = isUtf8 || DeclaresUtf8(page);
  const std::size_t found = FindIgnoringCase(page, HEAD_END);
  if (found == std::string_view::npos) return std::nullopt;
  return found + HEAD_END.size();
}

void StripTags(std::string& text) { RemoveMarkup(text, ListRule::keep); }

void StripTagsAndLists(std::string& text, bool markLists) {
  RemoveMarkup(text, markLists ? ListRule::mark : ListRule::drop);
}

HtmlOutcome StripPage(std::string& text, bool isUtf8, bool ignoreLists, Progress& progress) {
  // Compatibility: a page without a document-type line keeps its mark-up, and its tag names are
  // listed like other words. Users' listings depend on it.
  if (!Holds(text, "<!doctype") || !Holds(text, "html")) return HtmlOutcome::notAPage;
  bool pageIsUtf8 = isUtf8;
  const std::optional<std::size_t> body = FindHtmlBody(text, pageIsUtf8);
  if (!body) return HtmlOutcome::noHead;
  text.erase(0, *body);
  if (pageIsUtf8 && !isUtf8) {
    RepairUtf8(text);
    PlainPunctuation(text);
  }
  if (ignoreLists) {
    StripTagsAndLists(text, true);
  } else {
    StripTags(text);
  }
  progress.BeginPhase("Compacting spaces");
  CompactSpaces(text);
  return HtmlOutcome::prepared;
}

HtmlOutcome PrepareHtmlText(std::string& text, bool isUtf8, bool ignoreLists, Progress& progress) {
  const HtmlOutcome outcome = StripPage(text, isUtf8, ignoreLists, progress);
  if (outcome == HtmlOutcome::prepared) {
    DecodeEntities(text);
    progress.BeginPhase("Processing file");
  }
  return outcome;
}

}  // namespace quorvel
