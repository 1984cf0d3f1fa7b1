#include "unicode/chapter_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "input/compact_spaces.h"
#include "input/html_text.h"
#include "util/ascii.h"

// The functions for web pages (html_text.h) do most of the work. Chapters are XML made by
// typesetting programs, so what those functions cannot handle is removed first: comments, which may
// contain mark-up; empty elements such as "<script/>", which would be skipped to the end of the
// text; and tags inside words, such as those around a large initial.

namespace quorvel {
namespace {

// "a" and "sup" are missing: after a word they are more often a note number than a part of the
// word.
constexpr std::array<std::string_view, 24> INSIDE_WORDS = {
    "abbr", "acronym", "b",     "bdi",  "bdo",    "big", "cite", "code",
    "dfn",  "em",      "font",  "i",    "ins",    "kbd", "mark", "q",
    "s",    "samp",    "small", "span", "strong", "sub", "u",    "wbr"};

constexpr std::array<std::string_view, 5> SKIPPED = {"script", "noscript", "style", "ul", "ol"};

bool Holds(const auto& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// The name of the tag whose "<" is at the 0-based index `mark`, in lower case; end tags keep their
// "/".
std::string TagName(std::string_view markup, std::size_t mark) {
  constexpr std::size_t LONGEST_NAME = 10;
  const std::string tag = LowerAscii(markup.substr(mark + 1, LONGEST_NAME));
  const std::size_t length =
      tag.find_first_not_of("abcdefghijklmnopqrstuvwxyz123456", tag.starts_with('/') ? 1 : 0);
  return tag.substr(0, length);
}

// How a tag is handled.
enum class TagUse { keep, drop, blank, begin, beginBody };

TagUse UseOf(std::string_view name, bool isEmpty) {
  if (name == "body") return TagUse::beginBody;
  if (name == "/head") return TagUse::begin;
  const std::string_view bare = name.substr(name.starts_with('/') ? 1 : 0);
  if (Holds(INSIDE_WORDS, bare)) return TagUse::drop;
  return isEmpty && Holds(SKIPPED, name) ? TagUse::blank : TagUse::keep;
}

// Copies the parts of the markup that are kept.
class Simplifier {
 public:
  explicit Simplifier(std::string_view markup) : markup_(markup) {}

  std::string Run() {
    for (std::size_t mark = markup_.find('<'); mark != std::string_view::npos;
         mark = markup_.find('<', std::max(mark + 1, done_))) {
      if (markup_.substr(mark).starts_with("<!--")) {
        Drop(mark, markup_.find("-->", mark), 3, " ");
      } else if (!Pass(mark)) {
        break;
      }
    }
    kept_ += markup_.substr(done_);
    return std::move(kept_);
  }

 private:
  // Handles the tag at `mark`. Returns false when the markup has no further ">".
  bool Pass(std::size_t mark) {
    if (tagEnd_ <= mark) tagEnd_ = markup_.find('>', mark);
    if (tagEnd_ == std::string_view::npos) return false;
    const TagUse use = UseOf(TagName(markup_, mark), markup_[tagEnd_ - 1] == '/');
    if (use == TagUse::drop || use == TagUse::blank) {
      Drop(mark, tagEnd_, 1, use == TagUse::blank ? " " : "");
    } else if (use == TagUse::begin || (use == TagUse::beginBody && !inBody_)) {
      kept_.clear();
      done_ = mark;  // the tag is left for html_text.h
      inBody_ = use == TagUse::beginBody;
    }
    return true;
  }

  void Drop(std::size_t mark, std::size_t end, std::size_t endLength, std::string_view instead) {
    kept_.append(markup_, done_, mark - done_).append(instead);
    done_ = end == std::string_view::npos ? markup_.size() : end + endLength;
  }

  std::string_view markup_;
  std::string kept_;
  std::size_t done_ = 0;    // end of the handled markup
  std::size_t tagEnd_ = 0;  // the first ">" after `mark`, cached
  bool inBody_ = false;
};

}  // namespace

std::string ChapterText(std::string_view markup, bool ignoreLists) {
  // StripTags removes everything before the first ">".
  std::string text = ">" + Simplifier(markup).Run();
  if (ignoreLists) {
    StripTagsAndLists(text, true);
  } else {
    StripTags(text);
  }
  CompactSpaces(text);
  return std::string(TrimBlanks(text));
}

}  // namespace quorvel
