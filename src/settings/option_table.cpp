#include "settings/option_table.h"

#include <algorithm>
#include <array>

namespace quorvel {
namespace {

using Settings = ConcordanceSettings;

constexpr int MOST_JOBS = 64;

constexpr auto OPTIONS = std::to_array<Option>({
    {.names = "--input-type",
     .group = "Files",
     .kind = Word{.words = "txt html docx odt epub"},
     .help = "the type of standard input: txt, html, docx, odt or epub. Default: txt"},
    {.names = "-o,--output",
     .group = "Files",
     .kind = File{},
     .help = "the concordance or search-results file; \"-\" for standard output. Default: for a "
             "concordance the input with the extension qvl.conc.txt (with --format qvl.conc.tsv or "
             "qvl.conc.json); for a search standard output",
     .more =
         "The input, the keywords file, the stop-words file and the settings file cannot be the "
         "output, and standard output cannot be appended to one of them."},
    {.names = "--format",
     .group = "Files",
     .kind = Word{.words = "text tsv json"},
     .help = "text: the concordance; tsv or json: one row for each occurrence, for other programs, "
             "with word, folded key, count, left context, match, right context and position, in "
             "UTF-8. Default: text",
     .brief = "the concordance, or its occurrences as rows"},
    {.names = "--sort",
     .group = "Files",
     .kind = Word{.words = "place right left match"},
     .help = "order all rows of --format by the right context, the left context or the match. "
             "Default: place, the order of the listing, each word in the order of the text",
     .more = "The left context is compared from the match outwards.",
     .brief = "the order of the rows"},
    {.names = "--picture",
     .group = "Files",
     .kind = File{},
     .help = "write an SVG picture of where in the document each word occurs"},
    {.names = "-s,--settings",
     .group = "Files",
     .kind = File{.extension = "lvz"},
     .help = "start from a settings file, such as one that the window saved; all other options "
             "override it"},
    {.names = "--save-settings",
     .group = "Files",
     .kind = File{.extension = "lvz"},
     .help = "save the settings and other options in a settings file, and exit",
     .more = "These options are not saved: --encoding, --output-encoding, --notes, --use-index, "
             "--jobs, --answer and -q. The option is refused together with --format tsv, --format "
             "json, --sort or --picture. --language auto is saved as such, not as the list that it "
             "selects."},
    {.names = "--index",
     .group = "Files",
     .kind = Flag{&Settings::createIndexFile, true},
     .help = "write the words of the input to an index file beside it. Default: no",
     .line = 21,
     .kept = Kept::always,
     .more = "For harbour.txt the index file is harbour.qvl.ndx."},
    {.names = "--use-index",
     .group = "Files",
     .kind = Flag{},
     .help = "read the words from the index file if it matches the input. Default: no",
     .more = "Otherwise the input is scanned."},
    {.names = "-j,--jobs",
     .group = "Files",
     .kind = Number{.least = 1, .most = MOST_JOBS, .argument = "COUNT"},
     .help = "process this many documents at once, 1 to 64. Default: the number of processors"},
    {.names = "--encoding",
     .group = "Files",
     .kind = Word{.words = "auto utf-8 ansi unicode"},
     .help =
         "auto, utf-8 or ansi keep the characters of Windows-1252; unicode keeps all characters "
         "and writes UTF-8. Default: auto, which uses what is detected",
     .more = "UTF-8 is recognised by a byte-order mark, a declared charset or typographic "
             "punctuation. With utf-8 or ansi (Windows-1252) you are asked when the file looks "
             "different; the default answer keeps your choice. With unicode nothing is asked, word "
             "lists keep all characters too, and ODT and EPUB documents can also be read.",
     .brief = "the encoding of the input"},
    {.names = "--notes",
     .group = "Files",
     .kind = Flag{&Settings::notes},
     .help = "with --encoding unicode list the notes of a word-processor document too",
     .kept = Kept::always,
     .more = "These are its footnotes and endnotes."},
    {.names = "--output-encoding",
     .group = "Files",
     .kind = Word{.words = "windows-1252 utf-8"},
     .help =
         "windows-1252 or utf-8, for the concordance and the search results. Default: "
         "windows-1252 for a file, but utf-8 with --encoding unicode; for standard output utf-8 "
         "with LF line ends. The rows of --format are always UTF-8",
     .more =
         "Lines end in CR LF; only utf-8 on standard output and the rows of --format have LF. No "
         "byte-order mark is written.",
     .brief = "the encoding of the concordance"},
    {.names = "--create",
     .group = "Search",
     .kind = Flag{},
     .help = "list all words. Default without keywords"},
    {.names = "--search",
     .group = "Search",
     .kind = Flag{},
     .help = "list keywords only. Default with -k or -e",
     .excludes = "--create"},
    {.names = "-k,--keywords-file",
     .group = "Search",
     .kind = File{&Settings::keywordsFile, "txt", true, true},
     .help = "a file of words to search for",
     .line = 3},
    {.names = "--no-keywords-file",
     .group = "Search",
     .kind = Flag{},
     .help = "ignore the keywords file that the settings file names",
     .excludes = "--keywords-file"},
    {.names = "-e,--keywords",
     .group = "Search",
     .kind = Text{&Settings::extraKeywords},
     .help = "words to search for, separated by blanks: * stands for any characters, ? for one, # "
             "for a digit; WORD+OTHER finds WORD with OTHER in its context",
     .line = 20},
    {.names = "-c,--context",
     .group = "Listing",
     .kind = Number{0, LARGEST_CONTEXT_SIZE, &Settings::contextSize},
     .help = "words of context on each side, 0 to 9; 0 for a bare word list. Default: 5",
     .line = 18},
    {.names = "--order",
     .group = "Listing",
     .kind = Word{"alphabetical frequency", &Settings::wordOrder},
     .help = "alphabetical or frequency. Default: alphabetical",
     .line = 17,
     .brief = "the order of the words"},
    {.names = "--frequencies",
     .group = "Listing",
     .kind = Flag{&Settings::showFrequencies, true},
     .help = "show how often words and contexts occur. Default: yes",
     .line = 15},
    {.names = "--line-breaks",
     .group = "Listing",
     .kind = Flag{&Settings::showLineBreaks, true},
     .help = "show the line breaks of a text file as \" / \". Default: no",
     .line = 16},
    {.names = "--hyphens",
     .group = "Words",
     .kind = Flag{&Settings::allowWordsWithHyphens, true},
     .help = "list words with hyphens. Default: yes",
     .line = 11,
     .kept = Kept::unlessReinitialized},
    {.names = "--numerals",
     .group = "Words",
     .kind = Flag{&Settings::allowWordsWithNumerals, true},
     .help = "list words with digits. Default: no",
     .line = 12,
     .kept = Kept::unlessReinitialized},
    {.names = "--skip-lists",
     .group = "Words",
     .kind = Flag{&Settings::ignoreLists, true},
     .help = "leave out the lists of a web page. Default: no",
     .line = 10,
     .kept = Kept::unlessReinitialized,
     .more = "These are its bulleted and numbered lists."},
    {.names = "--min-count",
     .group = "Words",
     .kind = Number{1, LARGEST_THRESHOLD},
     .help = "list only words that occur at least N times, 1 to 20. Default: 1",
     .more = "This does not apply to a search."},
    {.names = "--stop-words",
     .group = "Words",
     .kind = File{&Settings::stopWordsFile, "txt", true},
     .help = "a file of words not to list",
     .line = 19},
    {.names = "--language",
     .group = "Words",
     .kind = Word{.words = "auto none all en de es pt it fr", .areSortedInErrors = false},
     .help =
         "the language of the stop words not to list: en, de, es, pt, it, fr, all, none, or auto "
         "for the language of the input. --stop-words replaces it. Default: auto",
     .replacedBy = "--stop-words"},
    {.names = "--extra-stop-words",
     .group = "Words",
     .kind = Text{&Settings::extraStopWords},
     .help = "words not to list, separated by blanks",
     .line = 7,
     .kept = Kept::unlessReinitialized},
    {.names = "--answer",
     .group = "Messages",
     .kind = Word{.words = "yes no default"},
     .help = "how questions are answered: yes, no or default. Without it, questions are asked on a "
             "terminal; otherwise the default answer is taken"},
    {.names = "-q,--quiet",
     .group = "Messages",
     .kind = Flag{},
     .help = "show no progress and no message on success"},
    {.names = "-V,--version", .group = "Messages", .kind = Shown{}, .help = "show the version"},
    {.names = "-h,--help", .group = "Messages", .kind = Shown{}, .help = "show this help"},
    // The command line sets these by INPUT, --output, --create, --search and --min-count.
    {.kind = File{.field = &Settings::inputFile, .mustExist = true}, .line = 1},
    {.kind = File{.field = &Settings::searchResultsFile, .mustExist = true}, .line = 2},
    {.kind = File{&Settings::outputFile}, .line = 4},
    {.kind = ModeLines{&Settings::mode}, .line = 5},
    {.kind = Number{.least = SMALLEST_THRESHOLD,
                    .most = LARGEST_THRESHOLD,
                    .field = &Settings::thresholdFrequency,
                    .mustBeSelected = false},
     .line = 8,
     .kept = Kept::unlessReinitialized},
    {.kind = Flag{&Settings::ignoreInfrequentWords}, .line = 9, .kept = Kept::unlessReinitialized},
    // The command line does not have these.
    {.kind = Flag{&Settings::warnOnOverwrite}, .line = 13, .kept = Kept::always},
    {.kind = Flag{&Settings::saveStateOnQuit}, .line = 14, .kept = Kept::always},
    {.kind = Flag{&Settings::outputToFileDisabled}, .line = 22},
});

}  // namespace

std::span<const Option> AllOptions() { return OPTIONS; }

std::string_view LongName(const Option& option) {
  return option.names.substr(std::min(option.names.find("--"), option.names.size()));
}

const Option* OptionOnLine(int line) {
  const auto found = std::ranges::find(OPTIONS, line, &Option::line);
  return found == OPTIONS.end() ? nullptr : &*found;
}

}  // namespace quorvel
