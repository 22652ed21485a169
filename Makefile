# The ways to build, run and check Korvandi. Everything is built below build/.

JOBS ?= $(shell nproc)

.PHONY: run test example examples-pictures bench check clang libcxx cross tidy asan tsan fuzz coverage games starts soak repeat \
	format resources clean

# Installs what is missing, builds and starts the game.
run:
	@tools/setup.sh run
	@mkdir -p build
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	@cmake --build --preset release -j $(JOBS) --target korvandi
	@build/release/bin/korvandi

# Installs what is missing, builds and runs all tests.
test:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS)
	ctest --preset release -j $(JOBS)

# Shows one of the examples in a window: make example NAME=life
example:
	@tools/setup.sh run
	@mkdir -p build
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	@cmake --build --preset release -j $(JOBS) --target example_$(NAME)
	@build/release/bin/example_$(NAME)

# Makes the pictures of the examples and of the manual anew.
examples-pictures:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target pictures

# Measures speed as ratios to the least that any program would have to do.
bench:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS)
	build/release/bin/korvandi_bench
	build/release/bin/korvandi_window_bench

# The test run under the address and undefined-behaviour sanitizers, and under the thread sanitizer;
# TESTS is a regular expression of the tests to run.
asan tsan:
	@tools/setup.sh check
	cmake --preset $@
	cmake --build --preset $@ -j $(JOBS)
	ctest --preset $@ -j $(JOBS) $(if $(TESTS),-R '$(TESTS)')

# Runs a fuzz target, or all of them one after the other, for so many seconds each:
# make fuzz TARGET=font_file SECONDS=600
fuzz:
	@tools/setup.sh check
	tools/fuzz.sh $(or $(SECONDS),60) $(TARGET)

# Which lines and branches of toolkit, game and platform the test run reaches.
coverage:
	@tools/setup.sh test coverage
	tools/coverage.sh $(JOBS)

# So many whole games with invariants; so many starts and ends of a windowed program; a person at
# random for so many minutes; the whole test run so many times.
games:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target korvandi_tests
	KORVANDI_GAMES=$(or $(GAMES),10000) build/release/bin/korvandi_tests --gtest_filter='WholeGames.*'
starts:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target korvandi_desktop_tests
	KORVANDI_STARTS=$(or $(STARTS),300) build/release/bin/korvandi_desktop_tests \
		--gtest_filter='Desktop.EndsWhateverTheProgramThreadDoes'
soak:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target korvandi_soak
	build/release/bin/korvandi_soak $(or $(MINUTES),30)
repeat:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS)
	ctest --preset release -j $(JOBS) --repeat until-fail:$(or $(TIMES),20)

# A build of everything by clang, which warns of other things.
clang:
	@tools/setup.sh check
	cmake --preset clang
	cmake --build --preset clang -j $(JOBS)

# The same with its own standard library, without the windowed program; and the test run.
libcxx:
	@tools/setup.sh libcxx
	cmake --preset libcxx
	cmake --build --preset libcxx -j $(JOBS)
	ctest --preset libcxx -j $(JOBS)

# Builds for other processors, without the windowed program and the tests.
cross:
	@tools/setup.sh cross
	for preset in m32 aarch64; do \
		cmake --preset $$preset && cmake --build --preset $$preset -j $(JOBS) || exit 1; \
	done

# clang-tidy over everything; takes long.
tidy: clang
	git ls-files '*.cpp' | xargs -P $(JOBS) -n 4 clang-tidy-14 -p build/clang --quiet

# Style: formatting, include directions, headers that compile alone, what the documents name.
check:
	@tools/setup.sh check
	tools/check_style.sh

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format-14 -i

# Makes the fonts, the sounds, the font chart and the table of upper-case letters anew.
resources:
	@tools/setup.sh test
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target resources

clean:
	rm -rf build
