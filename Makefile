# The two entry points: `make run` (the reader on the demo) and `make test`.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: all run test bench build deps clean

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

# Lookup speed, memory and book build time over the EDICT book (bench/run.sh).
bench: build
	bash bench/run.sh $(BUILD)

clean:
	rm -rf $(BUILD)
