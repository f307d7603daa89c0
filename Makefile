# The two entry points: `make run` (the reader on the demo) and `make test`.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all run test test-sanitize bench fuzz build deps clean install

all: build

deps:
	@sh scripts/install-deps.sh

$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

run: build
	sh scripts/run-demo.sh $(BUILD)

test: build
	ctest --test-dir $(BUILD) -j $(JOBS) --output-on-failure

# The programs, their man pages, language files and demo books under PREFIX
# (cmake/Install.cmake); DESTDIR is honoured for packaging.
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# The same tests built with AddressSanitizer and UndefinedBehaviorSanitizer.
ASAN_BUILD ?= build-asan
test-sanitize: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSANITIZE=ON -DDEMO_CARD_EDICT=OFF
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1:abort_on_error=0 UBSAN_OPTIONS=print_stacktrace=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp:print_suppressions=0 \
	  ctest --test-dir $(ASAN_BUILD) -j $(JOBS) --output-on-failure

# Lookup speed, memory and book build time over the EDICT book (bench/run.sh);
# what speech is given for its head lines (bench/reading_bench.sh).
bench: build
	bash bench/run.sh $(BUILD)
	bash bench/reading_bench.sh $(BUILD)

# The fuzz harnesses of fuzz/, each run for FUZZ_SECONDS (default 60).
fuzz:
	sh scripts/fuzz.sh

clean:
	rm -rf $(BUILD)
