# The two commands: `make run` and `make test`. Each installs what is missing, configures and builds.
# `make package` makes the installer, the portable zip and the debug archive in $(BUILD)/packages.
BUILD ?= build
JOBS ?= $(shell nproc)
PACKAGES := cmake make g++ mingw-w64 g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix \
            binutils-mingw-w64-x86-64 wine wine64 fonts-wine xvfb xauth x11-utils imagemagick googletest \
            nsis clang libclang-rt-14-dev libfuzzer-14-dev

.PHONY: all deps configure build run test package fuzz screenshots clean

# The byte scanners, built for the host with sanitizers and fuzzed: `make fuzz` runs each fuzzer for
# FUZZ_SECONDS (default 300) seconds; `make test` runs each for 5 seconds from its seeds with seed 1.
FUZZ_BUILD ?= $(BUILD)-fuzz
FUZZ_SECONDS ?= 300

all: build

deps:
	@missing=$$(for p in $(PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || echo $$p; done); \
	if [ -n "$$missing" ]; then \
	    echo "Installing: $$missing"; \
	    apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing; \
	fi

configure: deps
	@[ -f $(BUILD)/CMakeCache.txt ] || cmake -S . -B $(BUILD) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	@fuzz/run-fuzzers.sh $(FUZZ_BUILD) 5 1
	@eval "$$(cmake/wine-session.sh start $(BUILD))"; \
	cd $(BUILD) && ctest --output-on-failure -j 1; rc=$$?; \
	cd .. && cmake/wine-session.sh stop $(BUILD); exit $$rc

package: build
	cmake --build $(BUILD) --target lmvx_packages
	@ls -l $(BUILD)/packages

fuzz: deps
	@fuzz/run-fuzzers.sh $(FUZZ_BUILD) $(FUZZ_SECONDS)

run: build
	@tools/run-lumivex.sh $(BUILD)

screenshots: build
	@tools/screenshots.sh $(BUILD)

clean:
	rm -rf $(BUILD) $(FUZZ_BUILD)
