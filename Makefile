# Two commands do all the set-up on a fresh Debian 12 machine:
#   make run    install what is missing, build, run the main job
#   make test   install what is missing, build, pass the tests
BUILD_DIR ?= build
CMAKE_FLAGS ?=

.PHONY: all deps configure build run test clean

all: build

deps:
	@scripts/install-deps

configure: deps
	@cmake -S . -B $(BUILD_DIR) -G Ninja $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD_DIR)

run: build
	@$(BUILD_DIR)/tools/q3a-tuning-tour

test: build
	@ctest --test-dir $(BUILD_DIR) --output-on-failure -j 2

clean:
	rm -rf $(BUILD_DIR)
