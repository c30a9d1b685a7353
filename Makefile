# The two commands of the README: `make run` and `make test`.
BUILD      ?= build
BUILD_TEST ?= build-test
BUILD_BENCH ?= build-bench
JOBS       ?= $(shell nproc)

.PHONY: run test deps deps-bench configure build build-test bench package prova-installazione format check-format clean

deps:
	@bash scripts/installa-dipendenze.sh

# What only the benchmarks need.
deps-bench: deps
	@bash scripts/installa-dipendenze.sh scripts/pacchetti-bench.txt

# The program's own build: no tests, and only what `make run` starts.
configure: deps
	@cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZANTO_TESTS=OFF >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS) --target zanto zanto-installa

# The launcher makes the data folder on first use, as the installed one does.
run: build
	@$(BUILD)/zanto-avvio

# zanto_<version>_<arch>.deb in $(BUILD).
package: configure
	@cmake --build $(BUILD) -j $(JOBS) --target package

# The package installed into a clean Debian 12 root and started from its menu entry.
prova-installazione: package
	@$$([ "$$(id -u)" -eq 0 ] || echo sudo) bash scripts/prova-installazione.sh \
	   $$(ls -t $(BUILD)/zanto_*.deb | head -n 1)

build-test: deps
	@cmake -S . -B $(BUILD_TEST) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DZANTO_SANITIZE=ON >/dev/null
	@cmake --build $(BUILD_TEST) -j $(JOBS)

check-format: deps
	@files=$$(git ls-files '*.cpp' '*.h'); \
	 if [ -n "$$files" ]; then clang-format --dry-run --Werror $$files; fi

test: check-format build-test
	@cd $(BUILD_TEST) && ctest --output-on-failure -j $(JOBS)

bench: deps-bench
	@cmake -S . -B $(BUILD_BENCH) -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
	@cmake --build $(BUILD_BENCH) -j $(JOBS)
	@for b in $(BUILD_BENCH)/bench/bench_*; do \
	   if [ -f "$$b" ] && [ -x "$$b" ]; then echo "== $$b"; QT_QPA_PLATFORM=offscreen $$b; fi; done

format:
	@clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD) $(BUILD_TEST) $(BUILD_BENCH)
