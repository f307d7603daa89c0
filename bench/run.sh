#!/bin/bash
# `make bench`: lookup speed of the EDICT book against true(1) (the cost of
# starting any process), look(1) and grep -F, measured side by side in one
# run, by the wall clock and by CPU time; in-process lookups as the
# application makes them (the work file in the build folder, then on a
# tmpfs), with their user and system time and system calls; peak memory
# of one lookup, the time mkbook takes to build the book, and starts and
# closes over the settings file (settings_bench).
# Prints a table, then one "name value unit" line per figure.
set -e
build=${1:-build}
bin=$build/bin
here=$(dirname "$0")
edict=/usr/share/edict/edict
work=$build/bench
repeats=5

missing=""
[ -f "$edict" ] || missing="$missing edict"
command -v strace >/dev/null || missing="$missing strace"
if [ -n "$missing" ]; then
  echo "== installing:$missing"
  apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $missing >/dev/null
fi
mkdir -p "$work"

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
now_us() { local t=${EPOCHREALTIME/./}; echo "$t"; }

# 4. The EDICT book.
entries=$(LC_ALL=C grep -c ' /' "$edict")
entries=$((entries - 1))  # the header line
start=$(now_us)
"$bin/mkbook" -o "$work/edict" --from-edict "$edict"
build_us=$(( $(now_us) - start ))
book=$work/edict

# The same data for look(1): one line a key (head word, reading, English
# gloss), sorted byte by byte.
iconv -f EUC-JP -t UTF-8 "$edict" | awk -F' /' 'NR > 1 {
    head = $1; reading = ""
    if (match(head, / \[.*\]$/)) { reading = substr(head, RSTART + 2, RLENGTH - 3); head = substr(head, 1, RSTART - 1) }
    print head "\t" $0
    if (reading != "") print reading "\t" $0
    n = split(substr($0, length($1) + 3), glosses, "/")
    for (i = 1; i <= n; i++) {
      g = glosses[i]; gsub(/\([^)]*\) */, "", g); sub(/^to /, "", g)
      if (g != "") print tolower(g) "\t" $0
    }
  }' | LC_ALL=C sort > "$work/keys"
iconv -f UTF-8 -t CP932 "$here/words.txt" > "$work/words.sjis"

# 1. Whole-process lookups, side by side, word by word. tomeview writes the
# engine's own bytes (--sjis), as the others write what their files hold.
: > "$work/tomeview.us"; : > "$work/true.us"; : > "$work/look.us"; : > "$work/grep.us"
while IFS= read -r word; do
  sjis=$(printf '%s' "$word" | iconv -f UTF-8 -t CP932)
  euc=$(printf '%s' "$word" | iconv -f UTF-8 -t EUC-JP)
  lower=$(printf '%s' "$word" | tr 'A-Z' 'a-z')
  for _ in $(seq $repeats); do
    t=$(now_us); "$bin/tomeview" --sjis "-D$book" "$sjis" >/dev/null; echo $(( $(now_us) - t )) >> "$work/tomeview.us"
    t=$(now_us); /usr/bin/true "-D$book" "$sjis" >/dev/null; echo $(( $(now_us) - t )) >> "$work/true.us"
    t=$(now_us); LC_ALL=C look "$lower" "$work/keys" >/dev/null || true; echo $(( $(now_us) - t )) >> "$work/look.us"
    t=$(now_us); LC_ALL=C grep -F "$euc" "$edict" >/dev/null || true; echo $(( $(now_us) - t )) >> "$work/grep.us"
  done
done < "$here/words.txt"
# The CPU time (user and system) of the same runs, which other programs on a
# busy machine do not lengthen as they do the wall clock: the shell's
# `times` for its children, written before and after each series (into
# files: a command substitution would run it in a child of its own).
sjis_words=()
while IFS= read -r word; do sjis_words+=("$(printf '%s' "$word" | iconv -f UTF-8 -t CP932)"); done < "$here/words.txt"
times > "$work/times.0"
for _ in $(seq $repeats); do for sjis in "${sjis_words[@]}"; do "$bin/tomeview" --sjis "-D$book" "$sjis" >/dev/null; done; done
times > "$work/times.1"
for _ in $(seq $repeats); do for sjis in "${sjis_words[@]}"; do /usr/bin/true "-D$book" "$sjis" >/dev/null; done; done
times > "$work/times.2"
children_us() { awk 'NR == 2 { split($1, u, /[ms]/); split($2, s, /[ms]/); printf "%.0f\n", (u[1] * 60 + u[2] + s[1] * 60 + s[2]) * 1e6 }' "$1"; }
runs=$(( repeats * ${#sjis_words[@]} ))
tomeview_cpu_us=$(( ($(children_us "$work/times.1") - $(children_us "$work/times.0")) / runs ))
true_cpu_us=$(( ($(children_us "$work/times.2") - $(children_us "$work/times.1")) / runs ))

tomeview_us=$(median < "$work/tomeview.us")
true_us=$(median < "$work/true.us")
look_us=$(median < "$work/look.us")
grep_us=$(median < "$work/grep.us")

# 2. In-process lookups through engine_output and the work file; then the
# system calls of one lookup, as the difference between runs of 1 and 1001
# lookups, so that the program's own start is left out.
"$bin/lookup_bench" "$book" "$work/words.sjis" "$work/epwingwork.dat" 10000 2> "$work/inprocess.txt"
# The same with the work file on a tmpfs, where a logged-in user's
# $XDG_RUNTIME_DIR (the reader's place for it) lies: the figures get the
# prefix inprocess_tmpfs_.
: > "$work/inprocess_tmpfs.txt"
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
  shm_work=$(mktemp /dev/shm/epwingwork.XXXXXX)
  "$bin/lookup_bench" "$book" "$work/words.sjis" "$shm_work" 10000 2>&1 >/dev/null |
    sed -n 's/^inprocess_/inprocess_tmpfs_/p' > "$work/inprocess_tmpfs.txt"
  rm -f "$shm_work"
fi
syscalls() {
  strace -c -o "$work/strace.txt" "$bin/lookup_bench" "$book" "$work/words.sjis" "$work/epwingwork.dat" "$1" 0 2>/dev/null
  awk '$NF == "total" { print $4 }' "$work/strace.txt"
}
calls_1=$(syscalls 1)
calls_1001=$(syscalls 1001)

# 5. Starts and closes over the settings file.
"$bin/settings_bench" "$work/settings" 20 > "$work/settings.txt"

# 3. Peak resident memory of one lookup.
rss_kib=$( { /usr/bin/time -f '%M' "$bin/tomeview" --sjis "-D$book" "$(printf 'はな' | iconv -f UTF-8 -t CP932)" >/dev/null; } 2>&1 | tail -1)

figures=$(
  awk -v t="$tomeview_us" -v l="$look_us" -v g="$grep_us" -v r="$rss_kib" \
      -v b="$build_us" -v e="$entries" -v w="$(wc -l < "$here/words.txt")" \
      -v tr="$true_us" -v c1="$calls_1" -v c2="$calls_1001" \
      -v tc="$tomeview_cpu_us" -v trc="$true_cpu_us" 'BEGIN {
    printf "lookup_words %d words\n", w
    printf "lookup_median_tomeview %.2f ms\n", t / 1000
    printf "lookup_median_true %.2f ms\n", tr / 1000
    printf "lookup_median_look %.2f ms\n", l / 1000
    printf "lookup_median_grep %.2f ms\n", g / 1000
    printf "lookup_ratio_tomeview_true %.2f ratio\n", t / tr
    printf "lookup_ratio_tomeview_look %.2f ratio\n", t / l
    printf "lookup_cpu_tomeview %.0f us\n", tc
    printf "lookup_cpu_true %.0f us\n", trc
    printf "lookup_cpu_ratio_tomeview_true %.2f ratio\n", tc / trc
    printf "inprocess_syscalls_per_lookup %.1f calls\n", (c2 - c1) / 1000
    printf "peak_rss_tomeview %.2f MiB\n", r / 1024
    printf "edict_build_time %.2f s\n", b / 1e6
    printf "edict_build_entries_per_s %.0f entries/s\n", e / (b / 1e6)
  }'
  grep -v bytes_read "$work/inprocess.txt"
  grep -v bytes_read "$work/inprocess_tmpfs.txt" || true
  cat "$work/settings.txt"
)
echo
printf '%-32s %14s  %s\n' figure value unit
printf '%-32s %14s  %s\n' ------ ----- ----
echo "$figures" | while read -r name value unit; do printf '%-32s %14s  %s\n' "$name" "$value" "$unit"; done
echo
echo "$figures"
