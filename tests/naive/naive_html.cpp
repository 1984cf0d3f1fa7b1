#include "naive/naive_html.h"

#include <cctype>
#include <vector>

#include "naive/places.h"

namespace quorvel::naive {

const std::string ENTITY_TABLE =
    " &copy;\xA9 &amp;& &nbsp;  &#160;  &#8212;\x97"
    " &AElig;\xC6 &Aacute;\xC1 &Acirc;\xC2 &Agrave;\xC0 &Aring;\xC5 &Atilde;\xC3 &Auml;\xC4"
    " &Ccedil;\xC7 &ETH;\xD0 &Eacute;\xC9 &Ecirc;\xCA &Egrave;\xC8 &Euml;\xCB &Iacute;\xCD"
    " &Icirc;\xCE &Igrave;\xCC &Iuml;\xCF &Ntilde;\xD1 &Oacute;\xD3 &Ocirc;\xD4 &Ograve;\xD2"
    " &Oslash;\xD8 &Otilde;\xD5 &Ouml;\xD6 &THORN;\xDE &Uacute;\xDA &Ucirc;\xDB &Ugrave;\xD9"
    " &Uuml;\xDC &Yacute;\xDD &aacute;\xE1 &acirc;\xE2 &aelig;\xE6 &agrave;\xE0 &aring;\xE5"
    " &atilde;\xE3 &auml;\xE4 &ccedil;\xE7 &eacute;\xE9 &ecirc;\xEA &egrave;\xE8 &eth;\xF0"
    " &euml;\xEB &iacute;\xED &icirc;\xEE &igrave;\xEC &iuml;\xEF &ntilde;\xF1 &oacute;\xF3"
    " &ocirc;\xF4 &ograve;\xF2 &oslash;\xF8 &otilde;\xF5 &ouml;\xF6 &szlig;\xDF &thorn;\xFE"
    " &uacute;\xFA &ucirc;\xFB &ugrave;\xF9 &uuml;\xFC &yacute;\xFD &yuml;\xFF";

namespace {

// Whether `what` follows the character at `place`, compared in lower case.
bool Follows(const std::string& text, int place, const std::string& what) {
  std::string part = Mid(text, place + 1, Length(what));
  for (char& ch : part) {
    if (ch > 0) ch = static_cast<char>(std::tolower(ch));
  }
  return part == what;
}

std::string Strip(const std::string& text, const std::vector<std::string>& elements,
                  bool markLists) {
  std::string result;
  std::string skipped;  // the element that is being skipped; empty for none
  bool copy = false;
  int depth = 0;
  for (int place = 1; place <= Length(text); ++place) {
    const std::string ch = Mid(text, place, 1);
    if (!skipped.empty()) {
      const bool isList = skipped == "ul" || skipped == "ol";
      if (ch == "<" && isList && Follows(text, place, skipped)) ++depth;
      if (ch == "<" && Follows(text, place, "/" + skipped)) --depth;
      if (depth > 0) continue;
      if (isList && markLists) result += " // ";
      place += isList ? 3 : Length("/" + skipped);
      skipped = "";
      copy = false;
    } else if (ch == "<") {
      copy = false;
      for (const std::string& element : elements) {
        if (Follows(text, place, element)) skipped = element;
      }
      depth = 1;
    } else if (ch == ">") {
      copy = true;
      result += " ";
    } else if (copy) {
      result += ch;
    }
  }
  return result;
}

}  // namespace

std::string StripTags(const std::string& text) {
  return Strip(text, {"script", "noscript", "style"}, false);
}

std::string StripTagsAndLists(const std::string& text, bool markLists) {
  return Strip(text, {"script", "noscript", "style", "ul", "ol"}, markLists);
}

std::string DecodeEntities(std::string text) {
  for (int start = 1;;) {
    const int ampersand = Find(text, start, "&");
    if (ampersand == 0) return text;
    const int semicolon = Find(text, ampersand, ";");
    if (semicolon == 0) return text;
    const std::string candidate = Mid(text, ampersand, semicolon - ampersand + 1);
    std::string character = "\"";
    if (candidate != "&quot;") {
      const int entry = Find(ENTITY_TABLE, 1, " " + candidate);
      if (entry == 0) {
        start = semicolon + 1;
        continue;
      }
      character = Mid(ENTITY_TABLE, entry + 1 + Length(candidate), 1);
    }
    text = Left(text, ampersand - 1) + character + From(text, semicolon + 1);
    start = ampersand + 1;
  }
}

}  // namespace quorvel::naive
