# Two commands do all the set-up on a fresh Debian 12 machine:
#   make run    install what is missing, build, run the main job
#   make test   install what is missing, build, pass the tests
BUILD_DIR ?= build
CMAKE_FLAGS ?=

# ccache (used when installed) shares hits between checkouts in other places.
export CCACHE_BASEDIR := $(CURDIR)
export CCACHE_NOHASHDIR := 1
# debhelper builds packages under LC_ALL=C.UTF-8; the locale only changes the
# language of compiler messages, so it is left out of ccache's hash.
export CCACHE_SLOPPINESS ?= locale

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
# earlier run are removed before the build (the tool runs during it, and
# counts of a recompiled object no longer match) and after it; the tests
# must pass. Some tests drop to an unprivileged user in a child: the count
# files and their folders are left writable to it, or its counts are lost.
COVERAGE_DIR ?= build-coverage
coverage:
	@scripts/install-deps coverage
	@cmake -S . -B $(COVERAGE_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release \
		-DQ3A_COVERAGE=ON -DQ3A_BUILD_BENCHMARKS=OFF $(CMAKE_FLAGS) >/dev/null
	@find $(COVERAGE_DIR) -name '*.gcda' -delete
	@cmake --build $(COVERAGE_DIR)
	@find $(COVERAGE_DIR) -name '*.gcda' -delete
	@find $(COVERAGE_DIR) -type d -exec chmod a+w {} +
	@umask 000 && ctest --test-dir $(COVERAGE_DIR) --output-on-failure -j 2
	@scripts/coverage-report $(COVERAGE_DIR)

# Installs into a scratch prefix and builds the example consumer against it,
# through the CMake package and through pkg-config.
STAGE_DIR = $(BUILD_DIR)/stage
CONSUMER_FILE = tests/files/testdata/advance_table.json
install-check: build
	@rm -rf $(STAGE_DIR)
	@cmake --install $(BUILD_DIR) --prefix $(STAGE_DIR) >/dev/null
	@examples/consumer/check $(STAGE_DIR) $(CONSUMER_FILE) $(BUILD_DIR)/consumer

# Debian packages (library, development files, tool), with their debug
# symbols, built by debhelper (debian/) from a copy of the sources in
# $(PACKAGE_DIR), where dpkg-buildpackage also leaves the .deb files; then
# lintian over them. Tests run in `make test`, so the package build skips
# them (nocheck). PACKAGE_ARCH=arm64 cross-builds the aarch64 packages.
# The compiler flags are the project build's (RelWithDebInfo, warnings as
# errors), so that ccache serves the package build from `make test`'s
# objects and CI pays for the compilation once; the link keeps Debian's
# hardening (RELRO, BIND_NOW). dpkg-buildpackage run by hand in a checkout
# uses Debian's default flags.
# debhelper points HOME at a scratch directory, so ccache is told where its
# cache is.
CCACHE_CACHE_DIR := $(shell ccache -k cache_dir 2>/dev/null)
PACKAGE_ENV = DEB_CFLAGS_SET="-O2 -g -DNDEBUG" DEB_CXXFLAGS_SET="-O2 -g -DNDEBUG" \
	DEB_CPPFLAGS_SET="" Q3A_WERROR=ON \
	$(if $(CCACHE_CACHE_DIR),CCACHE_DIR=$(CCACHE_CACHE_DIR))
# A cross build's dependencies are those of `scripts/install-deps arm64`;
# libsimdjson-dev cannot be installed for two architectures at once (the
# build uses the build machine's header and the target's runtime package),
# so dpkg-checkbuilddeps is skipped there (-d).
PACKAGE_ARCH ?= $(shell dpkg --print-architecture)
PACKAGE_DIR = $(BUILD_DIR)/packages/$(PACKAGE_ARCH)
PACKAGE_SRC = $(PACKAGE_DIR)/q3a-tuning
PACKAGE_FLAGS = $(if $(filter-out $(shell dpkg --print-architecture),$(PACKAGE_ARCH)),-d)
package: deps
	@if [ -n "$(PACKAGE_FLAGS)" ]; then scripts/install-deps $(PACKAGE_ARCH); fi
	@rm -rf $(PACKAGE_DIR)
	@mkdir -p $(PACKAGE_SRC)
	@git ls-files -z --cached --others --exclude-standard | \
		tar --null -T - --ignore-failed-read -cf - 2>/dev/null | tar -xf - -C $(PACKAGE_SRC)
	@cd $(PACKAGE_SRC) && $(PACKAGE_ENV) DEB_BUILD_OPTIONS="nocheck $(DEB_BUILD_OPTIONS)" \
		DEB_BUILD_PROFILES="nocheck $(DEB_BUILD_PROFILES)" \
		dpkg-buildpackage -us -uc -b -a$(PACKAGE_ARCH) $(PACKAGE_FLAGS) > ../build.log 2>&1 || \
		{ tail -n 40 ../build.log; echo "package: failed, see $(PACKAGE_DIR)/build.log"; exit 1; }
	@lintian --fail-on error,warning $(PACKAGE_DIR)/*.changes
	@ls $(PACKAGE_DIR)/*.deb

# The packages installed on this machine with apt-get, the example consumer
# built against them and the tool run from /usr; then removed again.
PACKAGES = libq3a-tuning1 libq3a-tuning-dev q3a-tuning
package-check: package
	@apt-get install -y -qq $(foreach p,$(PACKAGES),./$(PACKAGE_DIR)/$(p)_*.deb) >/dev/null
	@status=0; \
	examples/consumer/check /usr $(CONSUMER_FILE) $(BUILD_DIR)/consumer-deb && \
	/usr/bin/q3a-tuning --version && \
	test -f /usr/share/man/man1/q3a-tuning.1.gz && \
	test -f /usr/share/bash-completion/completions/q3a-tuning || status=1; \
	apt-get remove -y -qq $(PACKAGES) >/dev/null; \
	[ $$status -eq 0 ] && echo "package-check: the packages install, build the consumer and run from /usr"

# The installed library's binary interface against the baseline in abi/, and
# its exported symbols against the API; abi-update takes the built library as
# the new baseline.
abi-check: build
	@abi/check $(BUILD_DIR)
abi-update: build
	@abi/check --update $(BUILD_DIR)

# The library and its tests cross-built for aarch64, the phone's
# architecture, and run under qemu-user. The tool, which runs on the tuning
# engineers' machines, is left out. The native build provides the build-time
# table generator.
ARM64_DIR ?= build-arm64
test-arm64: configure
	@scripts/install-deps arm64
	@cmake --build $(BUILD_DIR) --target q3a-qawb-table-gen
	@cmake -S . -B $(ARM64_DIR) -G Ninja \
		-DCMAKE_TOOLCHAIN_FILE=cmake/aarch64-linux-gnu.cmake \
		-DQ3A_HOST_TOOLS=$(abspath $(BUILD_DIR))/host-tools.cmake \
		-DQ3A_BUILD_BENCHMARKS=OFF -DQ3A_BUILD_TOOL=OFF $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(ARM64_DIR)
	@ctest --test-dir $(ARM64_DIR) --output-on-failure -j 2

clean:
	rm -rf $(BUILD_DIR)
