#!/bin/sh
# `make run`: writes the demo book and shows it through tomeview.
set -e
build=${1:-build}
demo="$build/demo"
"$build/bin/demobook" "$demo"
echo "== tomeview -D$demo -C"
"$build/bin/tomeview" "-D$demo" -C
echo "== tomeview -D$demo -A"
"$build/bin/tomeview" "-D$demo" -A
