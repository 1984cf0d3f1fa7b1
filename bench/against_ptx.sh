#!/usr/bin/env bash
# Measures whole runs of quorvel-cli, beside GNU ptx on the same English text and on generated
# texts that grow, and renews the measured parts of docs/performance.md.
#
# Exit status 1 when a target is missed, 2 when the machine was too busy to tell. Never part of
# the tests: what it finds depends on the machine and on what else runs there.
set -euo pipefail
export LC_ALL=C

# The targets.
LEAST_SPEED=4     # times as fast as ptx
MOST_MEMORY=8     # peak memory in multiples of input and output together
MOST_FOR_WORDS=15 # times as long for ten times the vocabulary
MOST_FOR_KEYWORDS=2 # times as long to search for 10,000 keywords as for one
LEAST_FROM_INDEX=1.5 # times as fast with the words from an index file as with a scan

RUNS=${RUNS:-11}    # of each command, taken in turns, after one that does not count
ATTEMPTS=3          # at a comparison that comes out differently by medians and by minima
MOST_DIFFERENCE=1.1 # between the two

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
CLI=$ROOT/build/release/quorvel-cli
BENCH=$ROOT/build/release/quorvel_bench
PAGE=$ROOT/docs/performance.md
TEXT_LENGTH=4000000
ROOM=1000000 # kilobytes, for the files of a measurement

die() {
  echo "$0: $1" >&2
  exit 2
}

for tool in "$CLI" "$BENCH" /usr/bin/time ptx bible; do
  command -v "$tool" >/dev/null || die "$tool is missing; ./dev bench builds and installs it"
done
# In memory where there is room, for a disk is as fast as it pleases.
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

# Runs a command; what it writes begins with `name`. Appends "MICROSECONDS KILOBYTES BYTES" to
# runs.name: its time, its peak memory and the length of its output. The output is removed
# before the next command, so that none pays for another one's.
measure() { # name, command...
  local name=$1 start end
  shift
  start=$EPOCHREALTIME
  /usr/bin/time -f %M -o peak "$@" >"$name.stdout"
  end=$EPOCHREALTIME
  echo "$((${end/./} - ${start/./})) $(cat peak) $(bytes "$name".*)" >>"runs.$name"
  rm "$name".*
}

list() { # name, text, extra stop words; no others, for ptx has none
  measure "$1" "$CLI" "$2" --language none --extra-stop-words "$3" -q -o "$1.txt"
}

# A search in the Bible; one for a rare word takes no time for its listing.
search() { # name, options
  measure "$1" "$CLI" bible.txt -q -o "$1.txt" "${@:2}"
}

# Over the runs of a measurement; column 1 is the time, 2 the memory, 3 the output.
least() { sort -n -k "$2,$2" "runs.$1" | awk -v column="$2" 'NR == 1 { print $column }'; }
median() {
  sort -n -k "$2,$2" "runs.$1" |
    awk -v column="$2" '{ value[NR] = $column } END { print value[int((NR + 1) / 2)] }'
}

take() { # name
  case $1 in
    ptx_bible) measure ptx_bible ptx -A -w 100 bible.txt ;;
    our_bible) list our_bible bible.txt "$bibleStopWords" ;;
    one_keyword) search one_keyword -k one.txt ;;
    many_keywords) search many_keywords -k many.txt ;;
    scanned) search scanned -e harvest ;;
    from_index) search from_index -e harvest --use-index ;;
    our_narrow) list our_narrow narrow.txt '' ;;
    our_wide) list our_wide wide.txt '' ;;
    our_short) list our_short narrow.txt "$longStopWords" ;;
    our_long) list our_long long.txt "$longStopWords" ;;
  esac
}

# Takes two measurements in turns; sets byMedian and byMinimum to the time of the first in
# multiples of the second.
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
  die "nothing can be told from this; try again when the machine is quiet"
}

# Peak memory in multiples of the bytes that went in and came out.
memory_of() { # name, text
  calculate "$(median "$1" 2) * 1024 / ($(bytes "$2") + $(median "$1" 3))"
}

# The words of a text that occur too often to be listed: the program refuses one at a time.
too_frequent_words() { # text
  local words='' message word
  until message=$("$CLI" "$1" -c 0 --language none --extra-stop-words "$words" -q -o - 2>&1 >/dev/null); do
    word=$(sed -n 's/.*The word "\(.*\)" occurs.*/\1/p' <<<"$message")
    [[ -n $word ]] || die "$message"
    words+=" $word"
  done
  echo "${words# }"
}

words_listed() { # text, extra stop words
  "$CLI" "$1" -c 0 --language none --extra-stop-words "$2" -q -o - | grep -c '^[^ ]* [0-9]*.$'
}

# Puts standard input between the markers of a part of the page.
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

# A row for each phase of a run on the English text.
phase_shares() {
  QUORVEL_BENCH_TEXT=bible.txt TMPDIR=$work "$BENCH" --benchmark_filter='^Run/text$' --benchmark_min_time=2 \
    --benchmark_format=csv 2>/dev/null | tr -d '"' | awk -F , '
    BEGIN {
      phases = "read,decode,scan,sort,order,compose,write"
      captions = "Checking and reading the file,Compacting and decoding,Scanning," \
        "Sorting,Filtering and counting and ordering by frequency,Composing the entries," \
        "Writing the file"
    }
    /^name,/ { for (i = 1; i <= NF; i++) column[$i] = i }
    /^Run/ {
      count = split(phases, phase)
      split(captions, caption)
      for (i = 1; i <= count; i++) printf "| %s | %.1f |\n", caption[i], $column[phase[i]]
    }'
}

echo "Making the texts"
bible -f 'gen1:1-rev22:21' | sed 's/$/\r/' >bible.txt
"$BENCH" text $TEXT_LENGTH 5000 1 >narrow.txt
"$BENCH" text $TEXT_LENGTH 200000 1 >wide.txt
for seed in 1 2 3 4 5 6 7 8 9 10; do "$BENCH" text $TEXT_LENGTH 5000 $seed; done >long.txt
bibleStopWords=$(too_frequent_words bible.txt)
longStopWords=$(too_frequent_words long.txt)
echo 'harvest' >one.txt
{ cat one.txt; "$BENCH" text 1000000 30000 2 | tr -cs '[:lower:]' '\n' | sort -u | awk 'length >= 7 && ++n <= 10000'; } >many.txt
"$CLI" bible.txt -q --language none --extra-stop-words "$bibleStopWords" --index -o with_index.txt
echo "Too frequent to be listed: $bibleStopWords; in the long text: $longStopWords"

compare ptx_bible our_bible
speed=$byMedian speedByMinimum=$byMinimum
compare many_keywords one_keyword
keywords=$byMedian keywordsByMinimum=$byMinimum
compare scanned from_index
fromIndex=$byMedian fromIndexByMinimum=$byMinimum
compare our_wide our_narrow
growth=$byMedian growthByMinimum=$byMinimum
compare our_long our_short
lengthening=$byMedian lengtheningByMinimum=$byMinimum
memory=$(memory_of our_bible bible.txt)
memoryOfLong=$(memory_of our_long long.txt)


text_row() { # caption, name of its measurement, text, extra stop words
  local input output
  input=$(rounded "$(bytes "$3") / 1e6")
  output=$(rounded "$(median "$2" 3) / 1e6")
  echo "| $1 | $input | $(words_listed "$3" "$4") | $output |"
}

renew_part measured <<END
Each command ran $RUNS times, on a machine with $(nproc) cores, of which a run uses one.

| Measured | By medians | By minima | Target |
|---|---|---|---|
| The Bible: time of ptx : ours | $(rounded "$speed") | $(rounded "$speedByMinimum") | at least $LEAST_SPEED |
| Search for 10,000 keywords : for one | $(rounded "$keywords") | $(rounded "$keywordsByMinimum") | at most $MOST_FOR_KEYWORDS |
| Search for a rare word: time with a scan : with an index file | $(rounded "$fromIndex") | $(rounded "$fromIndexByMinimum") | at least $LEAST_FROM_INDEX |
| Ten times the vocabulary: time with : without | $(rounded "$growth") | $(rounded "$growthByMinimum") | at most $MOST_FOR_WORDS |
| Ten times the length: time with : without | $(rounded "$lengthening") | $(rounded "$lengtheningByMinimum") | |
| The Bible: peak memory : (input + output) | $(rounded "$memory") | | at most $MOST_MEMORY |
| Ten times the length: peak memory : (input + output) | $(rounded "$memoryOfLong") | | at most $MOST_MEMORY |

| Text | Input, MB | Words listed | Concordance, MB |
|---|---|---|---|
$(text_row 'The Bible' our_bible bible.txt "$bibleStopWords")
$(text_row 'Generated' our_narrow narrow.txt '')
$(text_row 'Generated, ten times the vocabulary' our_wide wide.txt '')
$(text_row 'Generated, ten times the length' our_long long.txt "$longStopWords")

The output of ptx has $(rounded "$(median ptx_bible 3) / 1e6") MB; its peak memory is \
$(rounded "$(memory_of ptx_bible bible.txt)") times its input and output.
END

renew_part phases < <(
  echo '| Phase | Share of the time, % |'
  echo '|---|---|'
  phase_shares
)
echo "Wrote docs/performance.md"

missed=0
target() { # what, whether it holds
  holds "$2" || { echo "Missed: $1" >&2; missed=1; }
}
target "at least $LEAST_SPEED times as fast as ptx" "$speed >= $LEAST_SPEED"
target "10,000 keywords in $MOST_FOR_KEYWORDS times the time" "$keywords <= $MOST_FOR_KEYWORDS"
target "$LEAST_FROM_INDEX times as fast from an index" "$fromIndex >= $LEAST_FROM_INDEX"
target "ten times the vocabulary in $MOST_FOR_WORDS times the time" "$growth <= $MOST_FOR_WORDS"
target "memory of $MOST_MEMORY times input and output" "$memory <= $MOST_MEMORY"
target "the same for the long text" "$memoryOfLong <= $MOST_MEMORY"
exit "$missed"
