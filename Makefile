# What people call: make demo, make test; everything else is CMake (see CMakePresets.json).
# The packages that are missing are installed first, with sudo where needed.

JOBS ?= $(shell nproc)
# The system's own interpreter: others that stand first on the PATH may lack what the tools need.
CMAKE_FLAGS ?= -DPython3_EXECUTABLE=/usr/bin/python3

.PHONY: all demo install test test-release test-asan test-tsan bench sweep stress faults soak fuzz clean packages

all: build-release

packages:
	@tools/install-packages.sh $(EXTRA_PACKAGES)

build-%: packages
	@cmake --preset $* $(CMAKE_FLAGS) > build-$*.log 2>&1 || { cat build-$*.log; rm -f build-$*.log; exit 1; }
	@rm -f build-$*.log
	@cmake --build --preset $* -j $(JOBS)

demo: build-release
	@echo
	@echo "velkotx run examples/read-identification.otx --vehicle examples/vehicles/compact.json"
	@build/release/bin/velkotx run examples/read-identification.otx --vehicle examples/vehicles/compact.json

# The library, its headers and packages, the program with its manual page and completions.
PREFIX ?= /usr/local
install: build-release
	@cmake --install build/release --prefix $(PREFIX)

# Every suite in the release build and under the address and undefined behaviour sanitizers. The extra packages try the
# completions and the manual page.
test test-release: EXTRA_PACKAGES = zsh fish man-db
test: build-release build-asan
	@ctest --test-dir build/asan -j $(JOBS) --output-on-failure
	@ctest --test-dir build/release -j $(JOBS) --output-on-failure

test-release: build-release
	@ctest --test-dir build/release -j $(JOBS) --output-on-failure

test-asan: build-asan
	@ctest --test-dir build/asan -j $(JOBS) --output-on-failure

test-tsan: build-tsan
	@ctest --test-dir build/tsan -j $(JOBS) --output-on-failure

bench: EXTRA_PACKAGES = libbenchmark-dev lua5.4
bench: build-bench
	@/usr/bin/python3 bench/table.py build/bench

# Compiled files that together hold every type, broken in every way: some ten minutes of processor time. SWEEP_EVERY takes
# only each n-th case.
SWEEP_EVERY ?= 1
sweep: build-release
	@/usr/bin/python3 -B tests/modules/generate.py schema/catalogue build/release/tests/modules
	@build/release/bin/otx_sweep --processes $(JOBS) --every $(SWEEP_EVERY) examples
	@build/release/bin/otx_sweep --processes $(JOBS) --every $(SWEEP_EVERY) build/release/tests/modules

# A fault at every allocation, message, byte and host call of a document, instead of a sample.
faults: build-release
	@for part in load save run host streams; do build/release/bin/otx_faults $$part 1 tests/faults/mid-sized.otx || exit 1; done
	@build/release/bin/otx_host_faults tests/documents

# A million runs in one process, which have to be done within SOAK_MINUTES, and 200 sequencers at once.
SOAK_MINUTES ?= 30
soak: build-release
	@build/release/bin/otx_soak runs $(SOAK_MINUTES) 1000000 tests/faults/mid-sized.otx
	@build/release/bin/otx_soak crowd 200 20

# Runs of lanes, waits and commands against each other: 10,000 cancelled runs, a minute of stop and run, and more.
STRESS_FACTOR ?= 20
stress: build-release
	@VELKOTX_STRESS=$(STRESS_FACTOR) build/release/bin/stress_tests

# Each target of the fuzzer for FUZZ_SECONDS of processor time.
FUZZ_SECONDS ?= 60
fuzz: EXTRA_PACKAGES = clang
fuzz: build-fuzz
	@/usr/bin/python3 -B fuzz/run.py build/fuzz $(FUZZ_SECONDS)

clean:
	rm -rf build
