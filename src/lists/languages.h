// The languages that the program has stop words for.
#pragma once

#include <array>
#include <string_view>

namespace quorvel {

struct Language {
  std::string_view code;
  std::string_view name;
  std::string_view stopWordsFile;  // in the program's data folder
};

inline constexpr std::array<Language, 6> LANGUAGES = {{{"en", "English", "stwds_en.txt"},
                                                       {"de", "German", "stwds_de.txt"},
                                                       {"es", "Spanish", "stwds_es.txt"},
                                                       {"pt", "Portuguese", "stwds_pt.txt"},
                                                       {"it", "Italian", "stwds_it.txt"},
                                                       {"fr", "French", "stwds_fr.txt"}}};

// The choice beside them: the stop words of all.
inline constexpr Language ALL_LANGUAGES = {"all", "all six languages",
                                           "stwds_en_de_es_pt_it_fr.txt"};

}  // namespace quorvel
