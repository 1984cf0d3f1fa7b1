// The languages with stop words.
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

// The stop words of all languages together.
inline constexpr Language ALL_LANGUAGES = {"all", "all six languages",
                                           "stwds_en_de_es_pt_it_fr.txt"};

// In settings, this file name stands for the stop words of the input's language, which is detected
// in each run. No such file exists.
inline constexpr std::string_view INPUT_LANGUAGE_FILE = "stwds_auto.txt";

}  // namespace quorvel
