#!/bin/sh
# Installs the Debian packages the build and the tests need, when missing.
# Usage: install-deps.sh [extra-package...]
set -e
missing=""
# man-db and groff-base: the install test renders the man pages with man -l.
# python3: the layering test (scripts/folder_graph.py).
# MeCab and its dictionary give texts their readings; the reader speaks through
# the espeak-ng library, and make bench's reading figures run the espeak-ng program.
# freepwing (fpwmake) makes the tests' books of another writer.
# edict: the word list that the lookup guard test and `make bench` build a book of.
# Speech and Braille: the client libraries the reader links, and the servers
# its tests start (speech-dispatcher, brltty); the reader never needs them.
devices="pkg-config libspeechd-dev libespeak-ng-dev libbrlapi-dev speech-dispatcher brltty"
for pkg in cmake g++ make libgtest-dev man-db groff-base python3 libmecab-dev mecab-ipadic-utf8 \
    espeak-ng freepwing edict $devices "$@"; do
  dpkg -s "$pkg" >/dev/null 2>&1 || missing="$missing $pkg"
done
[ -z "$missing" ] && exit 0
if [ "$(id -u)" -ne 0 ]; then
  echo "missing packages:$missing -- install them as root (apt-get install$missing)" >&2
  exit 1
fi
echo "installing:$missing"
apt-get update -q
DEBIAN_FRONTEND=noninteractive apt-get install -y -q $missing
