# The two commands: `make run` and `make test`. Each installs what is missing, configures and builds.
# `make package` makes the installer, the portable zip and the debug archive in $(BUILD)/packages.
BUILD ?= build
JOBS ?= $(shell nproc)
PACKAGES := cmake make g++ mingw-w64 g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix \
            binutils-mingw-w64-x86-64 wine wine64 fonts-wine xvfb xauth x11-utils imagemagick googletest \
            nsis

.PHONY: all deps configure build run test package screenshots clean

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
	@eval "$$(cmake/wine-session.sh start $(BUILD))"; \
	cd $(BUILD) && ctest --output-on-failure -j 1; rc=$$?; \
	cd .. && cmake/wine-session.sh stop $(BUILD); exit $$rc

package: build
	cmake --build $(BUILD) --target lmvx_packages
	@ls -l $(BUILD)/packages

run: build
	@tools/run-lumivex.sh $(BUILD)

screenshots: build
	@tools/screenshots.sh $(BUILD)

clean:
	rm -rf $(BUILD)
