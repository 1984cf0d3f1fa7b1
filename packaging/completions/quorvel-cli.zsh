#compdef quorvel-cli
# Completion of the arguments of quorvel-cli for zsh.

_arguments -s -S \
  '(- *)'{-h,--help}'[show the options]' \
  '(- *)'{-V,--version}'[show the version]' \
  '--input-type=[the type of standard input]:type:(txt html docx odt epub)' \
  '(-o --output)'{-o,--output=}'[the concordance or search-results file, - for standard output]:output file:_files' \
  '--format=[the concordance, or its occurrences as rows]:format:(text tsv json)' \
  '--sort=[the order of the rows]:order:(place right left match)' \
  '--picture=[write an SVG picture of where each word occurs]:file:_files' \
  '(-s --settings)'{-s,--settings=}'[start from a settings file]:settings file:_files -g "*.(#i)lvz"' \
  '--save-settings=[save the settings and exit]:settings file:_files -g "*.(#i)lvz"' \
  '(--no-index)--index[write the words of the input to an index file]' \
  '(--index)--no-index[write no index file]' \
  '--use-index[read the words from the index file]' \
  '(-j --jobs)'{-j,--jobs=}'[process this many documents at once]:jobs: ' \
  '--encoding=[the encoding of the input]:encoding:(auto utf-8 ansi unicode)' \
  '--notes[list the notes of a word-processor document too]' \
  '--output-encoding=[the encoding of the concordance]:encoding:(windows-1252 utf-8)' \
  '(--search)--create[list all words]' \
  '(--create)--search[list keywords only]' \
  '(-k --keywords-file --no-keywords-file)'{-k,--keywords-file=}'[a file of words to search for]:keywords file:_files -g "*.(#i)txt"' \
  '(-k --keywords-file)--no-keywords-file[ignore the keywords file of the settings]' \
  '(-e --keywords)'{-e,--keywords=}'[words and patterns to search for]:words: ' \
  '(-c --context)'{-c,--context=}'[words of context on each side]:words:(0 1 2 3 4 5 6 7 8 9)' \
  '--order=[the order of the words]:order:(alphabetical frequency)' \
  '(--no-frequencies)--frequencies[show how often words and contexts occur]' \
  '(--frequencies)--no-frequencies[do not show how often words and contexts occur]' \
  '(--no-line-breaks)--line-breaks[show the line breaks of a text file]' \
  '(--line-breaks)--no-line-breaks[do not show line breaks]' \
  '(--no-hyphens)--hyphens[list words with hyphens]' \
  '(--hyphens)--no-hyphens[do not list words with hyphens]' \
  '(--no-numerals)--numerals[list words with digits]' \
  '(--numerals)--no-numerals[do not list words with digits]' \
  '(--no-skip-lists)--skip-lists[leave out the lists of a web page]' \
  '(--skip-lists)--no-skip-lists[keep the lists of a web page]' \
  '--min-count=[list only words that occur at least this often]:times:(1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20)' \
  '(--language)--stop-words=[a file of words not to list]:stop-words file:_files -g "*.(#i)txt"' \
  '(--stop-words)--language=[the language of the stop words not to list]:language:(auto en de es pt it fr all none)' \
  '--extra-stop-words=[words not to list]:words: ' \
  '--answer=[how questions are answered]:answer:(yes no default)' \
  '(-q --quiet)'{-q,--quiet}'[show no progress and no message on success]' \
  '*:document:_files -g "*.(#i)(txt|docx|odt|epub|*htm*)"'
