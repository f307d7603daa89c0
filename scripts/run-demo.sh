#!/bin/sh
# `make run`: the reader on the demo card that the build wrote. At a
# terminal the keyboard drives it (epwingdict --help lists the keys; Ctrl-Q
# closes); otherwise a short lookup runs as a key script and its transcript
# is printed. The settings file of the demo lives in the build folder.
set -e
build=${1:-build}
card="$build/card"
home="$build/demo-home"
mkdir -p "$home"
if [ -t 0 ] && [ -t 1 ]; then
  exec "$build/bin/epwingdict" --card "$card" --home "$home"
fi
echo "== epwingdict on $card: look up はな, open the first article, go back, close"
"$build/bin/epwingdict" --card "$card" --home "$home" --keys - <<'SCRIPT'
# the first dictionary of the list, then the word field
KEY_NEXT_CTRL
text はな
KEY_ENTER
# the result list: open the first article, read on, back twice, close
KEY_ENTER
KEY_OPTION_DOWN
KEY_BACK
KEY_BACK
KEY_EXIT
SCRIPT
echo "== $home/epwingdict.ini"
cat "$home/epwingdict.ini"
