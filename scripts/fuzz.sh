#!/bin/sh
# Builds the fuzz harnesses of fuzz/ with clang and libFuzzer in BUILD
# (default build-fuzz) and runs each for FUZZ_SECONDS (default 60), one
# after the other on one core. Corpora grow in BUILD/corpus/NAME from the
# seeds fuzz_seeds writes; a crash, a leak or a run over FUZZ_TIMEOUT
# seconds leaves its input in BUILD/findings. Prints executions and
# findings per harness; exits 1 when any harness found something.
# Usage: fuzz.sh [harness...]   (default: every fuzz/NAME_fuzzer.cc)
set -e
cd "$(dirname "$0")/.."
BUILD=${BUILD:-build-fuzz}
FUZZ_SECONDS=${FUZZ_SECONDS:-60}
FUZZ_TIMEOUT=${FUZZ_TIMEOUT:-20}
ALL=$(ls fuzz/*_fuzzer.cc | sed 's|fuzz/\(.*\)_fuzzer\.cc|\1|')
HARNESSES=${*:-$ALL}

sh scripts/install-deps.sh clang-14 libclang-rt-14-dev python3
[ -f "$BUILD/CMakeCache.txt" ] ||
  cmake -S fuzz -B "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++-14
cmake --build "$BUILD" -j "${JOBS:-2}"

# Every harness is built; one that is missing from fuzz/CMakeLists.txt
# is an error rather than a harness silently left out.
for name in $HARNESSES; do
  [ -x "$BUILD/bin/fuzz_$name" ] || { echo "fuzz_$name was not built" >&2; exit 1; }
done

"$BUILD/bin/fuzz_seeds" "$BUILD/seeds" >/dev/null
mkdir -p "$BUILD/findings"
status=0
for name in $HARNESSES; do
  corpus="$BUILD/corpus/$name"
  mkdir -p "$corpus"
  [ -d "$BUILD/seeds/$name" ] && cp -n "$BUILD/seeds/$name"/* "$corpus/" 2>/dev/null || true
  # A book's damaged counts matter over many pages: its inputs may be larger.
  max_len=65536
  [ "$name" = book ] && max_len=1048576
  log="$BUILD/findings/$name.log"
  before=$(ls "$BUILD/findings" | grep -c "^$name-" || true)
  "$BUILD/bin/fuzz_$name" "$corpus" -max_total_time="$FUZZ_SECONDS" -timeout="$FUZZ_TIMEOUT" \
    -max_len="$max_len" -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$BUILD/findings/$name-" >"$log" 2>&1 && rc=0 || rc=$?
  after=$(ls "$BUILD/findings" | grep -c "^$name-" || true)
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  echo "fuzz_$name: ${runs:-0} executions (limit ${FUZZ_SECONDS}s), $((after - before)) findings (log: $log)"
  # A finding, or a harness that failed without leaving one (it could not
  # start, or died outside an input), fails the run.
  if [ "$after" -gt "$before" ] || [ "$rc" -ne 0 ]; then
    [ "$rc" -ne 0 ] && echo "fuzz_$name exited with status $rc" >&2
    status=1
  fi
done
exit $status
