# SPDX-License-Identifier: GPL-3.0-or-later
#
# The one door to everything. Each target installs what it needs itself.

.PHONY: setup module web demo check test bench fuzz lint coverage mutants dist clean

# All that any target needs; afterwards cmake, ctest and an IDE work by themselves.
setup:
	@tools/setup.sh all

module:
	@tools/setup.sh build windows
	@tools/build.sh linux wybeta_module
	@tools/build.sh windows wybeta_module

# The page to try it on: build/web/wy-beta.html.
web:
	@tools/setup.sh build web
	@tools/build.sh web

demo:
	@tools/setup.sh build windows
	@tools/demo.sh

# The inner loop: the native build and its tests.
check:
	@tools/setup.sh build tests
	@tools/build.sh linux
	@ctest --preset linux --label-regex 'unit|module|wysim'

# Everything: native, sanitized, under Wine, in a browser; documents, package, replays of the fuzz
# targets.
test:
	@tools/setup.sh build windows web package tests fuzz
	@for preset in linux sanitized threads web windows; do \
	    tools/build.sh $$preset && ctest --preset $$preset || exit; done

bench:
	@tools/setup.sh build windows bench
	@tools/bench.sh

# Seconds for each target.
FUZZ_SECONDS ?= 60

fuzz:
	@tools/setup.sh build fuzz
	@tools/fuzz.sh $(FUZZ_SECONDS)

# The folders that clang-tidy reads; without any, it reads them all.
TIDY ?=

lint:
	@tools/setup.sh build tests bench fuzz lint
	@tools/lint.sh $(TIDY)

coverage:
	@tools/setup.sh build tests coverage
	@tools/coverage.sh

# How many changes, which ones, and the files or folders that they are made in.
MUTANTS ?= 100
SEED ?= 1
FILES ?= src

mutants:
	@tools/setup.sh build tests
	@nice tools/mutants.py --count $(MUTANTS) --seed $(SEED) $(FILES)

dist:
	@tools/setup.sh build windows web package
	@tools/dist.sh

clean:
	rm -rf build dist
