# Front door. `make run` and `make test` work on a fresh Debian 12 machine: both install what
# they need first.
BUILD ?= build
FUZZ_BUILD ?= build-fuzz
JOBS ?= 2
FUZZ_SECONDS ?= 60
DEMO_HOME ?= $(BUILD)/demo-home
# A compiler cache, where the machine has one, makes rebuilds in fresh clones cheap.
LAUNCHER := $(if $(shell command -v ccache),-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

.PHONY: deps configure build run test bench fuzz clean format package

deps:
	@scripts/install-deps

$(BUILD)/build.ninja:
	@cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER) >/dev/null

configure: deps $(BUILD)/build.ninja

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

# The demo home is made once: a stand-in editor folder whose game is a native stand-in program,
# and an archive of three generated levels. Delete it to start afresh.
run: build
	@test -d $(DEMO_HOME) || $(BUILD)/app/cli/vardolin-cli --home $(DEMO_HOME) demo
	$(BUILD)/app/qt/vardolin --home $(DEMO_HOME)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest -j $(JOBS) --output-on-failure --timeout 600

# vardolin_VERSION_amd64.deb in the build folder.
package: build
	cd $(BUILD) && cpack -G DEB

bench: build
	bench/compare $(BUILD)

fuzz: deps
	@cmake -S . -B $(FUZZ_BUILD) -G Ninja -DVARDOLIN_FUZZ=ON -DCMAKE_C_COMPILER=clang \
	  -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug $(LAUNCHER) >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS)
	fuzz/run-all $(FUZZ_BUILD) $(FUZZ_SECONDS)

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(FUZZ_BUILD)
