#!/bin/bash
# What speech is given for the head lines of the EDICT book: for the first
# 200 entries' head lines (as the book shows them: "reading【head word】",
# or the head word alone), the kanji left in the text handed to speech
# after the reading (target 0), and how many times espeak-ng still says
# "Chinese letter" in its phonemes for that text (target 0); the raw head
# lines' figures beside them. Prints one "name value unit" line a figure.
# Usage: reading_bench.sh [BUILD]
set -e
export LC_ALL=C.UTF-8
build=${1:-build}
edict=/usr/share/edict/edict
work=$build/bench
count=200
mkdir -p "$work"
if ! command -v espeak-ng >/dev/null; then
  echo "reading_bench: espeak-ng is not installed (sh scripts/install-deps.sh)" >&2
  exit 1
fi

iconv -f EUC-JP -t UTF-8 "$edict" | awk -F' /' -v n="$count" 'NR > 1 && NR <= n + 1 {
    head = $1; reading = ""
    if (match(head, / \[.*\]$/)) { reading = substr(head, RSTART + 2, RLENGTH - 3); head = substr(head, 1, RSTART - 1) }
    sub(/;.*/, "", reading); sub(/\(.*/, "", reading)
    print (reading != "" && reading != head) ? reading "【" head "】" : head
  }' > "$work/head_lines.txt"
"$build/bin/tenji" --reading < "$work/head_lines.txt" > "$work/head_readings.txt"

# Kanji: the CJK ideographs, their extension A and compatibility forms, and 々.
kanji() { grep -oP '[\x{3400}-\x{4DBF}\x{4E00}-\x{9FFF}\x{F900}-\x{FAFF}\x{3005}]' "$1" | wc -l; }
# espeak-ng names a character it has no reading for "Chinese letter".
chinese_letters() { espeak-ng -v ja -q -x -f "$1" | grep -o "tS'aIni:z" | wc -l; }

echo "reading_head_lines $(wc -l < "$work/head_lines.txt") lines"
echo "reading_kanji_in_head_lines $(kanji "$work/head_lines.txt") kanji"
echo "reading_kanji_left_for_speech $(kanji "$work/head_readings.txt") kanji"
echo "reading_chinese_letter_raw $(chinese_letters "$work/head_lines.txt") times"
echo "reading_chinese_letter_after_reading $(chinese_letters "$work/head_readings.txt") times"
