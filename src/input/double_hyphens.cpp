#include "input/double_hyphens.h"

#include "util/find_pair.h"

namespace quorvel {

void BlankDoubleHyphens(std::string& text, std::size_t third) {
  for (std::size_t p = FindPair(text, 0, '-', '-'); p < text.size();
       p = FindPair(text, p + 2, '-', '-')) {
    if (p < third) continue;
    const bool inOpening = text.compare(p - 2, 4, "<!--") == 0;
    const bool inClosing = text.compare(p, 3, "-->") == 0;
    if (!inOpening && !inClosing) text[p] = text[p + 1] = ' ';
  }
}

}  // namespace quorvel
