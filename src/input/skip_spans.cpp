#include "input/skip_spans.h"

#include <array>

namespace quorvel {
namespace {

constexpr std::array<SkipSpan, 3> XML_SPANS = {{{"<?xml", "?>"}, {"<!--", "-->"}, {"<", ">"}}};

constexpr std::array<SkipSpan, 6> HTML_SPANS = {{{"&", ";"},
                                                 {"<script", "/script>"},
                                                 {"<style", "/style>"},
                                                 {"<noscript", "/noscript>"},
                                                 {"<!--", "-->"},
                                                 {"<", ">"}}};

}  // namespace

void SetSkipSpans(std::string_view extension, SkipSpans& spans) {
  spans = {};
  if (extension == "xml") {
    spans.pairs = XML_SPANS;
  } else if (extension.find("htm") != std::string_view::npos) {
    spans = {HTML_SPANS, true};
  }
}

}  // namespace quorvel
