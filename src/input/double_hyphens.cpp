#include "input/double_hyphens.h"

#include "util/find_pair.h"

namespace quorvel {

void BlankDoubleHyphens(std::string& text) {
  for (std::size_t p = FindPair(text, 0, '-', '-'); p < text.size();
       p = FindPair(text, p + 2, '-', '-')) {
    const bool inOpening = p >= 2 && text.compare(p - 2, 4, "<!--") == 0;
    const bool inClosing = text.compare(p, 3, "-->") == 0;
    if (p >= 2 && !inOpening && !inClosing) text[p] = text[p + 1] = ' ';
  }
}

}  // namespace quorvel
