#!/usr/bin/env bash
# Measures whole runs of quorvel-cli beside GNU ptx and grep, on an English text and on generated
# texts of growing size, and updates the measured parts of docs/performance.md.
#
# The exit status is 1 when a target is missed and 2 when the machine was too busy to measure. This
# is not part of the tests, because the results depend on the machine and its load.
set -euo pipefail
export LC_ALL=C

RUNS=${RUNS:-11}    # of each command, alternating; one more run before them does not count
ATTEMPTS=3          # at a comparison whose median and minimum differ too much
MOST_DIFFERENCE=1.2 # between the ratios of medians and of minima

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
CLI=$ROOT/build/release/quorvel-cli
BENCH=$ROOT/build/release/quorvel_bench
PAGE=$ROOT/docs/performance.md
TEXT_LENGTH=4000000
ROOM=2000000 # kilobytes, for the files of a measurement

die() {
  echo "$0: $1" >&2
  exit 2
}

for tool in "$CLI" "$BENCH" /usr/bin/time ptx bible valgrind; do
  command -v "$tool" >/dev/null || die "$tool is missing; ./dev bench builds and installs it"
done
# In memory if there is room, because the speed of a disk varies.
place=/dev/shm
room=$(df --output=avail -k "$place" 2>/dev/null | tail -n 1) || room=0
((room >= ROOM)) || place=$ROOT/build
work=$(mktemp -d "$place/quorvel_bench.XXXXXX")
trap 'rm -r "$work"' EXIT
cd "$work"

calculate() { awk "BEGIN { printf \"%.4f\", $1 }"; }
holds() { awk "BEGIN { exit !($1) }"; }
rounded() { awk "BEGIN { printf \"%.${2:-1}f\", $1 }"; }

bytes() { stat -c %s "$@" | awk '{ sum += $1 } END { print sum }'; }

# Runs a command whose output files begin with `name`. Appends "MICROSECONDS KILOBYTES BYTES" to
# runs.name: its time, its peak memory and the length of its output. The output is removed before
# the next command, so that each starts under the same conditions.
measure() { # name, command...
  local name=$1 start end
  shift
  start=$EPOCHREALTIME
  /usr/bin/time -f %M -o peak "$@" >"$name.stdout"
  end=$EPOCHREALTIME
  echo "$((${end/./} - ${start/./})) $(cat peak) $(bytes "$name".*)" >>"runs.$name"
  rm "$name".*
}

list() { # name, text, extra stop words, options; no other stop words, for ptx has none
  measure "$1" "$CLI" "$2" --language none --extra-stop-words "$3" -q -o "$1.txt" "${@:4}"
}

search() { # name, text, options
  measure "$1" "$CLI" "$2" -q -o "$1.txt" "${@:3}"
}

# Statistics of a measurement. Column 1 is the time, 2 the memory, 3 the output.
least() { sort -n -k "$2,$2" "runs.$1" | awk -v column="$2" 'NR == 1 { print $column }'; }
median() {
  sort -n -k "$2,$2" "runs.$1" |
    awk -v column="$2" '{ value[NR] = $column } END { print value[int((NR + 1) / 2)] }'
}

take() { # name
  case $1 in
    ptx_bible) measure ptx_bible ptx -A -w 100 bible.txt ;;
    floor) measure floor "$BENCH" floor bible.txt floor.txt ;;
    one_core_bible)
      measure one_core_bible taskset -c 0 "$CLI" bible.txt --language none --extra-stop-words "$bibleStopWords" \
        -q -o one_core_bible.txt
      ;;
    one_core_floor) measure one_core_floor taskset -c 0 "$BENCH" floor bible.txt one_core_floor.txt ;;
    # With the usual kind of locale; with a single-byte locale grep is faster.
    grep) LC_ALL=C.UTF-8 measure grep grep -c -w harvest bible.txt ;;
    our_bible) list our_bible bible.txt "$bibleStopWords" ;;
    unicode_bible) list unicode_bible bible.txt "$bibleStopWords" --encoding unicode ;;
    unicode_cyrillic) list unicode_cyrillic cyrillic.txt "$(in_cyrillic <<<"$bibleStopWords")" --encoding unicode ;;
    unicode_keyword) search unicode_keyword bible.txt -k one.txt --encoding unicode ;;
    cyrillic_keyword) search cyrillic_keyword cyrillic.txt -e харвест --encoding unicode ;;
    # A word that the Cyrillic letters become when they are read as Windows-1252.
    cyrillic_first) search cyrillic_first cyrillic.txt -e 'ÐŸÑ' --encoding utf-8 ;;
    one_keyword) search one_keyword bible.txt -k one.txt ;;
    many_keywords) search many_keywords bible.txt -k many.txt ;;
    patterns*) search "$1" often10.txt -e "$(<"list.$1")" ;;
    search_*) search "$1" "${1#search_}.htm" -k one.txt ;;
    our_short) list our_short short.txt "$longStopWords" ;;
    our_long) list our_long long.txt "$longStopWords" ;;
    together) measure together "$CLI" -q desk ;;
    one_by_one)
      # shellcheck disable=SC2016 # the inner shell expands them
      measure one_by_one bash -c 'for text in desk/???.txt; do "$0" -q "$text"; done' "$CLI"
      ;;
    our_*) list "$1" "${1#our_}.txt" '' ;;
  esac
}

# Replaces each letter by a Cyrillic one, which takes two bytes.
in_cyrillic() {
  LC_ALL=C.UTF-8 sed 'y/abcdefghijklmnopqrstuvwxyz/абцдефгхийклмнопярстувшьыз/
    y/ABCDEFGHIJKLMNOPQRSTUVWXYZ/АБЦДЕФГХИЙКЛМНОПЯРСТУВШЬЫЗ/'
}

# Runs two measurements alternately. Sets byMedian and byMinimum to the time of the first divided by
# the time of the second.
compare() { # first, second
  local attempt i difference
  for ((attempt = 1; attempt <= ATTEMPTS; attempt++)); do
    for ((i = 0; i <= RUNS; i++)); do
      ((i != 1)) || rm -f "runs.$1" "runs.$2"
      take "$1"
      take "$2"
    done
    byMedian=$(calculate "$(median "$1" 1) / $(median "$2" 1)")
    byMinimum=$(calculate "$(least "$1" 1) / $(least "$2" 1)")
    echo "$1 : $2 = $(rounded "$byMedian" 2) by medians, $(rounded "$byMinimum" 2) by minima"
    difference=$(calculate "$byMedian / $byMinimum")
    if holds "$difference < $MOST_DIFFERENCE && 1 / $difference < $MOST_DIFFERENCE"; then
      return
    fi
    echo "These differ too much: the machine is busy (load $(cut -d ' ' -f 1 /proc/loadavg))"
    sleep 10
  done
  die "the measurements vary too much; try again when the machine is idle"
}

rows=''
missed=0

row() { # caption, by medians, by minima, "at least" or "at most", target
  rows+="| $1 | $(rounded "$2") | ${3:+$(rounded "$3")} | $4 $5 |"$'\n'
  local relation='<='
  [[ $4 == 'at most' ]] || relation='>='
  holds "$2 $relation $5" && return
  echo "Missed: $1 is $(rounded "$2" 2), the target is $4 $5" >&2
  missed=1
}

compared_row() { # caption, first, second, "at least" or "at most", target
  compare "$2" "$3"
  row "$1" "$byMedian" "$byMinimum" "$4" "$5"
}

# Like compared_row, for two benchmarks of quorvel_bench, which runs them alternately.
benchmarks_row() { # caption, first, second, "at least" or "at most", target
  QUORVEL_BENCH_TEXT=bible.txt "$BENCH" --benchmark_filter="^($2|$3)\$" --benchmark_repetitions=5 \
    --benchmark_enable_random_interleaving=true >benchmarks 2>/dev/null
  time_of() { awk -v name="$1_median" '$1 == name { print $2 }' benchmarks; }
  row "$1" "$(calculate "$(time_of "$2") / $(time_of "$3")")" '' "$4" "$5"
}

# Peak memory divided by the bytes of input and output.
memory_of() { # name, text
  calculate "$(median "$1" 2) * 1024 / ($(bytes "$2") + $(median "$1" 3))"
}

peak_megabytes() { # least or median, name
  calculate "$("$1" "$2" 2) * 1024 / 1e6"
}

# The words of a text that are too frequent to be listed. The program reports ten at a time.
too_frequent_words() { # text
  local words='' message named
  until message=$("$CLI" "$1" -c 0 --language none --extra-stop-words "$words" -q -o - 2>&1 >/dev/null); do
    named=$(grep -o '"[^"]*"' <<<"$message" | tr -d '"') || die "$message"
    words+=" ${named//$'\n'/ }"
  done
  echo "${words# }"
}

words_listed() { # text, extra stop words
  "$CLI" "$1" -c 0 --language none --extra-stop-words "$2" -q -o - | grep -c '^[^ ]* [0-9]*$'
}

# Replaces the text between the markers of a part of the page by standard input.
renew_part() { # name
  cat >part
  awk -v begin="<!-- $1: begin -->" -v end="<!-- $1: end -->" '
    $0 == end { inside = 0; found++ }
    !inside { print }
    $0 == begin {
      inside = 1
      while ((getline line <"part") > 0) print line
    }
    END { exit !found }' "$PAGE" >page || die "no part \"$1\" in the page"
  cp page "$PAGE"
}

# A table row for each phase of a run on the English text.
phase_shares() {
  QUORVEL_BENCH_TEXT=bible.txt TMPDIR=$work "$BENCH" --benchmark_filter='^Run/text$' --benchmark_min_time=2 \
    --benchmark_format=csv 2>/dev/null | tr -d '"' | awk -F , '
    BEGIN {
      phases = "read,decode,scan,sort,order,compose,write"
      captions = "Checking and reading the file,Compacting and decoding,Scanning," \
        "Sorting,Filtering and counting and ordering by frequency,Composing and writing the entries," \
        "Showing them and putting the file in its place"
    }
    /^name,/ { for (i = 1; i <= NF; i++) column[$i] = i }
    /^Run/ {
      count = split(phases, phase)
      split(captions, caption)
      for (i = 1; i <= count; i++) printf "| %s | %.1f |\n", caption[i], $column[phase[i]]
    }'
}

# A table row for each phase of the same run, with its instructions per byte of input. These counts
# are reproducible. They include all called functions; some rows subtract functions that have their
# own row.
instruction_rows() {
  valgrind --tool=callgrind --callgrind-out-file=callgrind.out "$CLI" bible.txt --language none \
    --extra-stop-words "$bibleStopWords" -q -o counted.txt 2>/dev/null
  callgrind_annotate --inclusive=yes --threshold=100 callgrind.out | tr -d , |
    awk -v length_="$(bytes bible.txt)" '
    BEGIN {
      count = split("Looking for signs of UTF-8|+CheckInputFile;" \
        "Compacting|+CompactSpaces;" \
        "Decoding and blanking double hyphens|+DecodeAnsi +BlankDoubleHyphens;" \
        "Scanning|+GetWords;" \
        "Filtering and counting and ordering by frequency|+OrderWords;" \
        "Mapping blanks|+ContextCutter;" \
        "Cutting contexts|+Cut;" \
        "Merging them|+DisplayNextWord -Cut -EmitContexts;" \
        "Marking and listing them|+EmitContexts;" \
        "The digest of the input|+AddBlock", rows, ";")
    }
    /PROGRAM TOTALS/ { total = $1 }
    {
      gsub(/\(anonymous namespace\)::/, "")
      while (gsub(/<[^<>]*>/, "")) {} # of templates
    }
    match($0, /quorvel::[A-Za-z_:]*[[(]/) {
      name = substr($0, RSTART, RLENGTH - 1)
      sub(/.*:/, "", name)
      if (!(name in instructions)) instructions[name] = $1
    }
    END {
      other = total
      for (i = 1; i <= count; i++) {
        split(rows[i], row, "|")
        terms = split(row[2], term, " ")
        sum = 0
        for (k = 1; k <= terms; k++) {
          name = substr(term[k], 2)
          if (!(name in instructions)) { print "no " name > "/dev/stderr"; exit 1 }
          sum += (term[k] ~ /^-/ ? -1 : 1) * instructions[name]
        }
        other -= sum
        printf "| %s | %.1f | %.1f |\n", row[1], sum / length_, 100 * sum / total
      }
      printf "| Everything else, from start to end | %.1f | %.1f |\n", other / length_, 100 * other / total
      printf "| All | %.1f | 100 |\n", total / length_
    }'
}

echo "Generating the texts"
bible -f 'gen1:1-rev22:21' | sed 's/$/\r/' >bible.txt
"$BENCH" text $TEXT_LENGTH 5000 1 >narrow.txt
"$BENCH" text $TEXT_LENGTH 200000 1 >wide.txt
for seed in {1..10}; do "$BENCH" text 10000000 5000 "$seed"; done >long.txt
head -c 10000000 long.txt >short.txt
bibleStopWords=$(too_frequent_words bible.txt)
in_cyrillic <bible.txt >cyrillic.txt
truncate -s "$(bytes bible.txt)" cyrillic.txt
longStopWords=$(too_frequent_words long.txt)
seq 100000 149999 | tr 0-9 k-t | paste -d ' ' - - - - - | sed 's/$/\r/' >spread.txt
seq 100000 599999 | tr 0-9 k-t | paste -d ' ' - - - - - | sed 's/$/\r/' >spread10.txt
# Uniformly distributed words in random order. Each line of `often` also has the same additional
# word.
awk 'BEGIN { for (srand(1); n < 5000000; n++) print 100000 + int(50000 * rand()) }' |
  tr 0-9 k-t | paste -d ' ' - - - - - - - - - - | sed 's/$/\r/' >flat10.txt
head -n 50000 flat10.txt >flat.txt
head -n 32767 flat10.txt | sed 's/ / lamp /5' >often10.txt
head -n 3277 often10.txt >often.txt
awk 'BEGIN {
  printf "<!DOCTYPE html><html><head></head><body>harvest\r\n"
  while (n++ < 283333) printf "<p>the lamp is <b>lit</b> and <i>whoever</i></p>\r\n"
}' >tags10.htm
head -n 28333 tags10.htm >tags.htm
echo 'harvest' >one.txt
{ cat one.txt; "$BENCH" text 1000000 30000 2 | tr -cs '[:lower:]' '\n' | sort -u | awk 'length >= 7 && ++n <= 10000'; } >many.txt
for name in tokens markers repairs; do
  for kind in '' _benign; do "$BENCH" hostile $name$kind >$name$kind.txt; done
done
printf 'lamp %.0s' {1..2000} >list.patterns
cat bible.txt bible.txt bible.txt >documents
truncate -s 10000000 documents
mkdir desk
split -n l/1000 -d -a 3 --additional-suffix=.txt documents desk/
{ echo lamp; seq 10001 11999 | tr 0-9 k-t; } | tr '\n' ' ' >list.patterns_benign
echo "Too frequent to be listed: $bibleStopWords; in the long text: $longStopWords"

compared_row 'The Bible: time of ptx : ours' ptx_bible our_bible 'at least' 11
compared_row 'The Bible: our time : a bare loop that hashes words and copies slices' our_bible floor 'at most' 1.9
compared_row 'The same on one processor' one_core_bible one_core_floor 'at most' 3
compared_row 'Search for one keyword: our time : grep -c -w' one_keyword grep 'at most' 2
compared_row 'Search for 10,000 keywords : for one' many_keywords one_keyword 'at most' 2
compared_row 'The Bible: time as Unicode : in Windows-1252' unicode_bible our_bible 'at most' 1.25
compared_row 'As many bytes of Cyrillic as Unicode : the Bible in Windows-1252' unicode_cyrillic our_bible 'at most' 1.5
compared_row 'Search for one keyword: time as Unicode : in Windows-1252' unicode_keyword one_keyword 'at most' 1.25
MOST_DIFFERENCE=1.5 compared_row 'The same in Cyrillic: time as Unicode : in Windows-1252' cyrillic_keyword cyrillic_first 'at most' 1.5
compared_row 'Ten times the vocabulary: time with : without' our_wide our_narrow 'at most' 15
compared_row '100 MB : 10 MB' our_long our_short 'at most' 11
compared_row '500,000 different words, once each : 50,000' our_spread10 our_spread 'at most' 11
compared_row '40 MB of equally frequent words : 4 MB' our_flat10 our_flat 'at most' 11
compared_row 'One word in each of 32,767 lines : of 3,277' our_often10 our_often 'at most' 11
compared_row 'Search in a page with 1,700,000 tags : with 170,000' search_tags10 search_tags 'at most' 11
# Runs of a twentieth of a second vary more, and the targets are far from the measured values.
MOST_DIFFERENCE=1.5 compared_row '80,000 words that share a slot where a table has no secret : others' our_tokens our_tokens_benign 'at most' 2
MOST_DIFFERENCE=1.5 compared_row '32,000 lines with what looks like a repeat marker : with other signs' our_markers our_markers_benign 'at most' 2
MOST_DIFFERENCE=1.5 compared_row '20 MB in which repairs of UTF-8 lead to others : in which they do not' our_repairs our_repairs_benign 'at most' 2
MOST_DIFFERENCE=1.5 compared_row 'Search for one pattern 2,000 times : for 2,000 patterns' patterns patterns_benign 'at most' 2
compared_row '1,000 documents of 10 KB: time of 1,000 commands : of one' one_by_one together 'at least' 4
benchmarks_row 'The body of a DOCX document of 20 MB : of 2 MB' ReadBody/20000000 ReadBody/2000000 'at most' 11
benchmarks_row 'Search in the window for a rare word: with a scan : with an index file' Search/scanned Search/fromIndex 'at least' 1.5
benchmarks_row 'A whole run : listing again, as for another context' Run/text ListAgain/text 'at least' 1.3
row 'The Bible: peak memory in MB' "$(peak_megabytes median our_bible)" \
  "$(peak_megabytes least our_bible)" 'at most' 40
row 'The Bible: peak memory : (input + output)' "$(memory_of our_bible bible.txt)" '' 'at most' 3
row '100 MB: peak memory : input' "$(calculate "$(median our_long 2) * 1024 / $(bytes long.txt)")" '' 'at most' 6

text_row() { # caption, name of its measurement, text, extra stop words
  local input output
  input=$(rounded "$(bytes "$3") / 1e6")
  output=$(rounded "$(median "$2" 3) / 1e6")
  echo "| $1 | $input | $(words_listed "$3" "$4") | $output |"
}

renew_part measured <<END
Each command ran $RUNS times, on a machine with $(nproc) cores, which a run uses to scan and compose.

| Measured | By medians | By minima | Target |
|---|---|---|---|
$rows
| Text | Input, MB | Words listed | Concordance, MB |
|---|---|---|---|
$(text_row 'The Bible' our_bible bible.txt "$bibleStopWords")
$(text_row 'Generated' our_narrow narrow.txt '')
$(text_row 'Generated, ten times the vocabulary' our_wide wide.txt '')
$(text_row 'Generated, 100 MB' our_long long.txt "$longStopWords")

The output of ptx has $(rounded "$(median ptx_bible 3) / 1e6") MB; its peak memory is \
$(rounded "$(memory_of ptx_bible bible.txt)") times its input and output.
END

{
  echo '| Phase | Share of the time, % |'
  echo '|---|---|'
  phase_shares
  echo
  echo '| Phase | Instructions for each byte of input | Share, % |'
  echo '|---|---|---|'
  instruction_rows
} >phase_rows # in a file first, so that a missing row ends the script
renew_part phases <phase_rows
echo "Wrote docs/performance.md"
exit "$missed"
