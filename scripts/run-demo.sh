#!/bin/sh
# `make run`: the reader on the demo card that the build wrote. At a terminal the keyboard
# drives it (epwingdict --help lists the keys; Ctrl-Q closes); otherwise a
# short demo script runs and its transcript is printed. The settings file
# of the demo lives in the build folder.
set -e
build=${1:-build}
card="$build/card"
home="$build/demo-home"
mkdir -p "$home"
if [ -t 0 ] && [ -t 1 ]; then
  exec "$build/bin/epwingdict" --card "$card" --home "$home"
fi
echo "== epwingdict on $card: down the dictionary list, up, to the word field, exit"
"$build/bin/epwingdict" --card "$card" --home "$home" --keys - <<'SCRIPT'
KEY_OPTION_DOWN
KEY_OPTION_UP
KEY_NEXT_CTRL
text 辞書
KEY_EXIT
SCRIPT
echo "== $home/epwingdict.ini"
cat "$home/epwingdict.ini"
