# SPDX-License-Identifier: GPL-3.0-or-later
#
# The one door to everything: `make demo` and `make test` set up what they need themselves.

export VST3_SDK_DIR ?= $(CURDIR)/.deps/vst3sdk

.PHONY: setup module demo test bench fuzz lint coverage dist clean

setup:
	@tools/setup.sh

module: setup
	@tools/build.sh linux module
	@tools/build.sh windows module

demo: module
	@tools/demo.sh

test: setup
	@tools/test.sh

bench: setup
	@tools/bench.sh

# Seconds for each target.
FUZZ_SECONDS ?= 60

fuzz: setup
	@tools/fuzz.sh $(FUZZ_SECONDS)

# The folders that clang-tidy reads; without any, it reads them all.
TIDY ?=

lint: setup
	@tools/lint.sh $(TIDY)

coverage: setup
	@tools/coverage.sh

dist: setup
	@tools/dist.sh

clean:
	rm -rf build dist
