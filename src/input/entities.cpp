#include "input/entities.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

// Compatibility: candidates never overlap. After an unknown entity the search continues behind its
// ";", so a plain "&" in running text hides an entity that follows it ("R&D in Orl&eacute;ans"
// keeps its entity). Users' listings and index files depend on it. It also makes one pass over the
// text sufficient.

namespace quorvel {
namespace {

struct Entity {
  std::string_view name;  // without "&" and ";"
  char byte;
};

// Sorted by name for the binary search. The no-break space becomes a plain blank, so that it
// separates words.
constexpr std::array ENTITIES = {
    Entity{"#160", ' '},      Entity{"#8212", '\x97'},  Entity{"AElig", '\xC6'},
    Entity{"Aacute", '\xC1'}, Entity{"Acirc", '\xC2'},  Entity{"Agrave", '\xC0'},
    Entity{"Aring", '\xC5'},  Entity{"Atilde", '\xC3'}, Entity{"Auml", '\xC4'},
    Entity{"Ccedil", '\xC7'}, Entity{"ETH", '\xD0'},    Entity{"Eacute", '\xC9'},
    Entity{"Ecirc", '\xCA'},  Entity{"Egrave", '\xC8'}, Entity{"Euml", '\xCB'},
    Entity{"Iacute", '\xCD'}, Entity{"Icirc", '\xCE'},  Entity{"Igrave", '\xCC'},
    Entity{"Iuml", '\xCF'},   Entity{"Ntilde", '\xD1'}, Entity{"Oacute", '\xD3'},
    Entity{"Ocirc", '\xD4'},  Entity{"Ograve", '\xD2'}, Entity{"Oslash", '\xD8'},
    Entity{"Otilde", '\xD5'}, Entity{"Ouml", '\xD6'},   Entity{"THORN", '\xDE'},
    Entity{"Uacute", '\xDA'}, Entity{"Ucirc", '\xDB'},  Entity{"Ugrave", '\xD9'},
    Entity{"Uuml", '\xDC'},   Entity{"Yacute", '\xDD'}, Entity{"aacute", '\xE1'},
    Entity{"acirc", '\xE2'},  Entity{"aelig", '\xE6'},  Entity{"agrave", '\xE0'},
    Entity{"amp", '&'},       Entity{"aring", '\xE5'},  Entity{"atilde", '\xE3'},
    Entity{"auml", '\xE4'},   Entity{"ccedil", '\xE7'}, Entity{"copy", '\xA9'},
    Entity{"eacute", '\xE9'}, Entity{"ecirc", '\xEA'},  Entity{"egrave", '\xE8'},
    Entity{"eth", '\xF0'},    Entity{"euml", '\xEB'},   Entity{"iacute", '\xED'},
    Entity{"icirc", '\xEE'},  Entity{"igrave", '\xEC'}, Entity{"iuml", '\xEF'},
    Entity{"nbsp", ' '},      Entity{"ntilde", '\xF1'}, Entity{"oacute", '\xF3'},
    Entity{"ocirc", '\xF4'},  Entity{"ograve", '\xF2'}, Entity{"oslash", '\xF8'},
    Entity{"otilde", '\xF5'}, Entity{"ouml", '\xF6'},   Entity{"quot", '"'},
    Entity{"szlig", '\xDF'},  Entity{"thorn", '\xFE'},  Entity{"uacute", '\xFA'},
    Entity{"ucirc", '\xFB'},  Entity{"ugrave", '\xF9'}, Entity{"uuml", '\xFC'},
    Entity{"yacute", '\xFD'}, Entity{"yuml", '\xFF'},
};
static_assert(std::ranges::is_sorted(ENTITIES, {}, &Entity::name));

std::optional<char> ByteOf(std::string_view name) {
  const auto* const found = std::ranges::lower_bound(ENTITIES, name, {}, &Entity::name);
  if (found == ENTITIES.end() || found->name != name) return std::nullopt;
  return found->byte;
}

}  // namespace

void DecodeEntities(std::string& text) {
  char* const data = text.data();
  std::size_t out = 0;   // end of the finished output
  std::size_t done = 0;  // end of the processed input
  for (std::size_t start = text.find('&'); start != std::string::npos;
       start = text.find('&', done)) {
    const std::size_t end = text.find(';', start);
    if (end == std::string::npos) break;
    const std::string_view name(data + start + 1, end - start - 1);
    const std::optional<char> byte = ByteOf(name);
    const std::size_t keptEnd = byte ? start : end + 1;
    std::copy(data + done, data + keptEnd, data + out);
    out += keptEnd - done;
    if (byte) data[out++] = *byte;
    done = end + 1;
  }
  text.erase(out, done - out);
}

}  // namespace quorvel
