#!/bin/sh
# Installs the build into a scratch prefix and uses it as a user would, from
# a folder of its own, with a home of its own:
# - the installed programs print their versions and have man pages;
# - epwingdict makes the user's card with the demo books on first start, and
#   a lookup on them finds a word (its menu words come from the installed
#   language files);
# - a dictionary that lies outside the card is registered through
#   --books and found again on the next start through $EPWINGDICT_BOOKS;
#   bad --books are refused with status 2;
# - man renders each installed page.
# Usage: install_test.sh BUILD_DIR
set -eu
build=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix="$work/prefix"
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
# has FILE LINE: LINE stands in FILE as a whole line.
has() { grep -qxF -- "$2" "$1" || fail "no line '$2' in $1"; }

cmake --install "$build" --prefix "$prefix" >/dev/null
mkdir -p "$work/home" "$work/run/epwingdict" "$work/elsewhere"
cd "$work/elsewhere"
unset XDG_DATA_HOME XDG_CONFIG_HOME EPWINGDICT_CARD EPWINGDICT_BOOKS CDDRIVE
export HOME="$work/home" XDG_RUNTIME_DIR="$work/run"

# Every installed program tells its version and has its man page.
for path in "$prefix"/bin/*; do
  program=$(basename "$path")
  "$path" --version | grep -q "^$program (tomeview reader) " || fail "$program --version"
  [ -f "$prefix/share/man/man1/$program.1" ] || fail "no man page for $program"
done
[ -x "$prefix/bin/epwingdict" ] || fail "epwingdict is not installed"

# First start: a lookup in the first built-in dictionary, then the menu.
cat > lookup.keys <<'KEYS'
KEY_NEXT_CTRL
text はな
KEY_ENTER
KEY_BACK
KEY_MENU
KEY_BACK
KEY_EXIT
KEYS
"$prefix/bin/epwingdict" --keys lookup.keys > lookup.out || fail "lookup run: status $?"
has lookup.out "BRL 辞書選択:プラス辞典/ことわざ小辞典"
has lookup.out "BRL 検索結果:はな【花】"
has lookup.out "TTS メニュー 終了"
card="$HOME/.local/share/epwingdict/card"
[ "$(readlink "$card/epwing/plus")" = "$prefix/share/epwingdict/epwing/plus" ] ||
  fail "the user's card does not link the demo books: $(ls -l "$card/epwing")"

# A dictionary of the user's own, outside the card: chosen at the card's top
# in the folder chooser, its second book registered and searched.
mkdir "$work/dicts"
cp -r "$prefix/share/epwingdict/epwing/plus" "$work/dicts/kotoba"
cat > register.keys <<'KEYS'
# to the management screen's list, then "追加": the chooser opens in \SD\epwing
KEY_NEXT_CTRL
KEY_NEXT_CTRL
KEY_NEXT_CTRL
KEY_ENTER
KEY_NEXT_CTRL
KEY_ENTER
# up to \SD, down to kotoba, into it, choose it; its second book, its name
KEY_BACK
KEY_OPTION_DOWN
KEY_ENTER
KEY_ENTER
KEY_OPTION_DOWN
KEY_ENTER
KEY_ENTER
KEY_EXIT
KEY_EXIT
KEYS
"$prefix/bin/epwingdict" --keys register.keys --books "$work/dicts/kotoba" > register.out ||
  fail "register run: status $?"
has register.out 'BRL \\SD kotoba'
has register.out "BRL ブック選択:ことわざ小辞典"
has register.out "BRL 登録しました"
ini="$HOME/.config/epwingdict/epwingdict.ini"
has "$ini" 'PATH_0000=\SD\kotoba'

# The next start finds it through $EPWINGDICT_BOOKS: the third dictionary.
cat > again.keys <<'KEYS'
48
48
KEY_NEXT_CTRL
text さるもきからおちる
KEY_ENTER
KEY_EXIT
KEYS
EPWINGDICT_BOOKS="$work/nowhere-empty:$work/dicts/kotoba" "$prefix/bin/epwingdict" --keys again.keys \
  > again.out 2> again.err && fail "a missing folder in EPWINGDICT_BOOKS was taken"
EPWINGDICT_BOOKS=":$work/dicts/kotoba:" "$prefix/bin/epwingdict" --keys again.keys > again.out ||
  fail "again run: status $?"
has again.out "BRL 辞書選択:ことわざ小辞典"
has again.out "BRL 検索結果:さるもきからおちる【猿も木から落ちる】"

# Bad book folders: status 2 and a message, nothing runs.
mkdir -p "$work/mine/epwing"
mkdir -p "$work/back\\slash"
for books in "$work/none" "$work/mine/epwing" / "$work/back\\slash" "a\\b=$work/mine"; do
  status=0
  "$prefix/bin/epwingdict" --keys again.keys --books "$books" > bad.out 2> bad.err || status=$?
  [ "$status" = 2 ] && [ ! -s bad.out ] && grep -q "^epwingdict: " bad.err ||
    fail "--books $books: status $status, $(cat bad.err)"
done
"$prefix/bin/epwingdict" --keys again.keys --books "mine=$work/mine/epwing" > named.out ||
  fail "--books NAME=DIR: status $?"

for page in "$prefix"/share/man/man1/*.1; do
  name=$(basename "$page" .1)
  LC_ALL=C.UTF-8 MANWIDTH=80 man -l "$page" 2> man.err | grep -q "^NAME" || fail "man -l $page"
  [ -s man.err ] && fail "man -l $page: $(cat man.err)"
  [ -x "$prefix/bin/$name" ] || fail "a man page for $name, which is not installed"
done
[ "$(MANPATH="$prefix/share/man" man -w tomeview)" = "$prefix/share/man/man1/tomeview.1" ] ||
  fail "man does not find tomeview under the prefix"

if [ "$failures" -gt 0 ]; then
  echo "$failures failed"
  exit 1
fi
echo "install test passed"
