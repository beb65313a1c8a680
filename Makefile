# Two commands do all the set-up on a fresh Debian 12 machine:
#   make run    install what is missing, build, run the main job
#   make test   install what is missing, build, pass the tests
BUILD_DIR ?= build
CMAKE_FLAGS ?=

.PHONY: all deps configure build run test clean bench sanitize fuzz

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
	@cmake --build $(BENCH_DIR) --target q3a_bench q3a_load_bench
	@echo "bench: running, a few minutes"
	@$(BENCH_DIR)/bench/q3a_bench $(BENCH_FLAGS) > $(BENCH_DIR)/bench/results.json
	@$(BENCH_DIR)/bench/q3a_load_bench $(BENCH_FLAGS) > $(BENCH_DIR)/bench/load_results.json
	@bench/ratios $(BENCH_DIR)/bench/results.json $(BENCH_DIR)/bench/load_results.json

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

clean:
	rm -rf $(BUILD_DIR)
