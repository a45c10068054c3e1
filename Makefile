# Everyday commands. `make build` and `make demo` are all a user needs; `make check` is what every change must pass.
JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
SOURCES = git ls-files '*.cpp' '*.h'

.PHONY: build demo check check-format check-plain check-asan lint fuzz bench format packages clean

build: packages
	@cmake --preset release >/dev/null
	@cmake --build build --parallel $(JOBS) --target zolcad QuendZolCad

demo: build
	@examples/demo

check: packages check-format check-plain check-asan
	@echo
	@echo "== plain build =="
	@tail -n 3 build/check.log
	@echo "== address and undefined behaviour sanitizers =="
	@tail -n 3 build-asan/check.log

check-format: packages
	@$(SOURCES) | xargs --no-run-if-empty -P $(JOBS) -n 20 clang-format --dry-run -Werror
	@echo "format: clean"

check-plain: packages check-format
	@cmake --preset release >/dev/null
	@cmake --build build --parallel $(JOBS)
	@tools/run-tests build $(JOBS)

check-asan: check-plain
	@cmake --preset asan >/dev/null
	@cmake --build build-asan --parallel $(JOBS)
	@tools/run-tests build-asan $(JOBS)

lint: check-format
	@cmake --preset lint >/dev/null
	@run-clang-tidy -quiet -p build-lint -j $(JOBS) '/(sdk|src|host|tests|bench|fuzz)/' >build-lint/lint.log 2>&1 \
		|| { grep -E 'error:|warning:' build-lint/lint.log | sort -u; exit 1; }
	@echo "clang-tidy: clean"

fuzz: packages
	@cmake --preset fuzz >/dev/null
	@cmake --build build-fuzz --parallel $(JOBS)
	@tools/run-fuzzers build-fuzz $(FUZZ_SECONDS)

bench: packages
	@cmake --preset release >/dev/null
	@cmake --build build --parallel $(JOBS)
	@for program in $$(ls bench/*.cpp | sed 's,bench/\(.*\)\.cpp,\1,'); do echo "== $$program"; build/bin/$$program; done
	@bench/compare

format:
	@$(SOURCES) | xargs --no-run-if-empty -P $(JOBS) -n 20 clang-format -i

packages:
	@tools/install-packages

clean:
	rm -rf build build-asan build-clang build-fuzz build-lint examples/out
