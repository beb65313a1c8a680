# Two commands do all the set-up on a fresh Debian 12 machine:
#   make run    install what is missing, build, run the main job
#   make test   install what is missing, build, pass the tests
BUILD_DIR ?= build
CMAKE_FLAGS ?=

# ccache (used when installed) shares hits between checkouts in other places.
export CCACHE_BASEDIR := $(CURDIR)
export CCACHE_NOHASHDIR := 1

.PHONY: all deps configure build run test clean bench sanitize fuzz \
	install-check package package-check test-arm64 abi-check abi-update \
	coverage

all: build

deps:
	@scripts/install-deps

configure: deps
	@cmake -S . -B $(BUILD_DIR) -G Ninja $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD_DIR)

run: build
	@scripts/tour $(BUILD_DIR)/tools/q3a_tuning/q3a-tuning

test: build
	@ctest --test-dir $(BUILD_DIR) --output-on-failure -j 2

# Benchmarks in their own Release build; prints each operation's time over
# its lower bound measured in the same run (medians of 5 repetitions).
BENCH_DIR ?= build-bench
BENCH_FLAGS ?= --benchmark_repetitions=5 --benchmark_min_time=0.1 \
	--benchmark_enable_random_interleaving=true \
	--benchmark_report_aggregates_only=true --benchmark_format=json
bench: deps
	@cmake -S . -B $(BENCH_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(BENCH_DIR) --target q3a_bench q3a_load_bench q3a_tool_bench
	@echo "bench: running, a few minutes"
	@$(BENCH_DIR)/bench/q3a_bench $(BENCH_FLAGS) > $(BENCH_DIR)/bench/results.json
	@$(BENCH_DIR)/bench/q3a_load_bench $(BENCH_FLAGS) > $(BENCH_DIR)/bench/load_results.json
	@$(BENCH_DIR)/bench/q3a_tool_bench $(BENCH_FLAGS) > $(BENCH_DIR)/bench/tool_results.json
	@bench/ratios $(BENCH_DIR)/bench/results.json $(BENCH_DIR)/bench/load_results.json \
		$(BENCH_DIR)/bench/tool_results.json

# The test suite built with ASan and UBSan, then the concurrency suite built
# with ThreadSanitizer, each in its own build directory. At -O2 -g, g++ needs
# over 12 GB to instrument the typed record suites; -O1 -g1 needs about 1 GB.
# Instrumented -O1 code makes g++ 12 warn falsely of uninitialised members
# inside std::regex, so that warning is off here.
ASAN_DIR ?= build-asan
TSAN_DIR ?= build-tsan
SANITIZE_FLAGS = -DQ3A_BUILD_BENCHMARKS=OFF $(CMAKE_FLAGS) \
	-DCMAKE_CXX_FLAGS_RELWITHDEBINFO='-O1 -g1 -DNDEBUG -Wno-maybe-uninitialized'
sanitize: deps
	@cmake -S . -B $(ASAN_DIR) -G Ninja -DQ3A_SANITIZERS=address,undefined $(SANITIZE_FLAGS) >/dev/null
	@cmake --build $(ASAN_DIR)
	@ctest --test-dir $(ASAN_DIR) --output-on-failure -j 2
	@cmake -S . -B $(TSAN_DIR) -G Ninja -DQ3A_SANITIZERS=thread $(SANITIZE_FLAGS) >/dev/null
	@cmake --build $(TSAN_DIR) --target concurrency_test
	@$(TSAN_DIR)/tests/registry/concurrency_test

# The libFuzzer targets in their own clang build, each run for FUZZ_SECONDS
# (FUZZ_JOBS at a time); figures and crashes land in $(FUZZ_DIR)/fuzz.
FUZZ_DIR ?= build-fuzz
FUZZ_SECONDS ?= 60
fuzz: deps
	@CC=clang CXX=clang++ cmake -S . -B $(FUZZ_DIR) -G Ninja -DQ3A_FUZZ=ON \
		-DQ3A_BUILD_TESTS=OFF -DQ3A_BUILD_BENCHMARKS=OFF $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(FUZZ_DIR) --target fuzz_all
	@fuzz/run $(FUZZ_DIR) $(FUZZ_SECONDS)

# Line and branch coverage of the library and of the tool, with Debian's
# gcovr, in a build of its own (see scripts/coverage-report). Counts from an
# earlier run are removed first; the tests must pass.
COVERAGE_DIR ?= build-coverage
coverage:
	@scripts/install-deps coverage
	@cmake -S . -B $(COVERAGE_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release \
		-DQ3A_COVERAGE=ON -DQ3A_BUILD_BENCHMARKS=OFF $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(COVERAGE_DIR)
	@find $(COVERAGE_DIR) -name '*.gcda' -delete
	@ctest --test-dir $(COVERAGE_DIR) --output-on-failure -j 2
	@scripts/coverage-report $(COVERAGE_DIR)

# Installs into a scratch prefix and builds the example consumer against it,
# through the CMake package and through pkg-config.
STAGE_DIR = $(BUILD_DIR)/stage
CONSUMER_FILE = tests/files/testdata/advance_table.json
install-check: build
	@rm -rf $(STAGE_DIR)
	@cmake --install $(BUILD_DIR) --prefix $(STAGE_DIR) >/dev/null
	@examples/consumer/check $(STAGE_DIR) $(CONSUMER_FILE) $(BUILD_DIR)/consumer

# Debian packages (library, development files, tool) in $(BUILD_DIR)/packages.
package: build
	@rm -rf $(BUILD_DIR)/packages
	@cd $(BUILD_DIR) && cpack -B packages >/dev/null
	@ls $(BUILD_DIR)/packages/*.deb

# The packages unpacked into a scratch root, the consumer built against it,
# and apt-get's check that they install on this machine.
DEB_ROOT = $(BUILD_DIR)/deb-root
package-check: package
	@rm -rf $(DEB_ROOT)
	@for deb in $(BUILD_DIR)/packages/*.deb; do dpkg -x $$deb $(DEB_ROOT); done
	@examples/consumer/check $(DEB_ROOT)/usr $(CONSUMER_FILE) $(BUILD_DIR)/consumer-deb
	@$(DEB_ROOT)/usr/bin/q3a-tuning --version >/dev/null
	@apt-get install --simulate -qq $(addprefix ./,$(wildcard $(BUILD_DIR)/packages/*.deb)) >/dev/null
	@echo "package-check: the packages unpack, build the consumer and install"

# The installed library's binary interface against the baseline in abi/, and
# its exported symbols against the API; abi-update takes the built library as
# the new baseline.
abi-check: build
	@abi/check $(BUILD_DIR)
abi-update: build
	@abi/check --update $(BUILD_DIR)

# The library, tool and tests cross-built for aarch64 and run under qemu-user.
# The native build provides the build-time table generator.
ARM64_DIR ?= build-arm64
test-arm64: configure
	@scripts/install-deps arm64
	@cmake --build $(BUILD_DIR) --target q3a-qawb-table-gen
	@cmake -S . -B $(ARM64_DIR) -G Ninja \
		-DCMAKE_TOOLCHAIN_FILE=cmake/aarch64-linux-gnu.cmake \
		-DQ3A_HOST_TOOLS=$(abspath $(BUILD_DIR))/host-tools.cmake \
		-DQ3A_BUILD_BENCHMARKS=OFF $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(ARM64_DIR)
	@ctest --test-dir $(ARM64_DIR) --output-on-failure -j 2

clean:
	rm -rf $(BUILD_DIR)
