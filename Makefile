# The two commands that a newcomer needs are `make run` and `make test`.
BUILD := build
HOST := $(BUILD)/src/olt_host/olt_host
CATALOGUE := data/catalogue.yaml
REPORTS := data/reports.yaml
CMAKE_FLAGS :=
BENCH_BUILD := $(BUILD)-bench
BENCH_PLOT := $(BENCH_BUILD)/performance.svg
BENCH_FILTER :=
BENCH_FLAGS :=

.PHONY: run test build configure check bench pictures docs install packages clean help

run: configure
	@echo "==> Building olt_host in $(BUILD)/"
	@cmake --build $(BUILD) --target olt_host
	@echo "==> Confirming the shipped ONU population"
	@scripts/run_host.sh $(HOST) $(CATALOGUE) $(REPORTS)

test: build
	@echo "==> Running the tests"
	@ctest --test-dir $(BUILD) --output-on-failure -j $$(nproc) --progress

build: configure
	@echo "==> Building everything in $(BUILD)/"
	@cmake --build $(BUILD)

configure:
	@scripts/install_packages.sh build
	@scripts/configure.sh $(BUILD) $(CMAKE_FLAGS)

check:
	@for gate in scripts/check_*.sh; do echo "==> $$gate"; $$gate || exit 1; done

# The plot of the docs: make bench BENCH_PLOT=docs/performance.svg
bench:
	@scripts/install_packages.sh build bench
	@scripts/configure.sh $(BENCH_BUILD) -DONU_ABILITY_BUILD_BENCH=ON \
	  -DONU_ABILITY_BUILD_HOST=OFF -DONU_ABILITY_BUILD_TESTS=OFF $(CMAKE_FLAGS)
	@echo "==> Building the benchmark in $(BENCH_BUILD)/"
	@cmake --build $(BENCH_BUILD) --target onu_ability_bench
	@echo "==> Measuring, some minutes; $(BENCH_BUILD)/bench.log tells how far it is"
	@$(BENCH_BUILD)/bench/onu_ability_bench --out=$(BENCH_BUILD)/results.json \
	  $(if $(BENCH_FILTER),'--benchmark_filter=$(BENCH_FILTER)') $(BENCH_FLAGS) \
	  2>$(BENCH_BUILD)/bench.log || { tail $(BENCH_BUILD)/bench.log; exit 1; }
	@bench/report.py $(BENCH_BUILD)/results.json --plot $(BENCH_PLOT)

pictures: configure
	@scripts/install_packages.sh docs
	@cmake --build $(BUILD) --target pictures

# What the comments of the public headers say, as pages.
docs:
	@scripts/install_packages.sh docs
	@rm -rf build-docs/html
	@doxygen docs/Doxyfile
	@echo "==> The reference is build-docs/html/index.html"

install: configure
	@echo "==> Building the library and olt_host in $(BUILD)/"
	@cmake --build $(BUILD) --target onu_ability_common onu_ability_common_static olt_host
	cmake --install $(BUILD)

# The Debian packages, in build-packages/.
packages:
	@scripts/build_packages.sh

clean:
	rm -rf build build-* *.log

help:
	@echo "make run      build, confirm the shipped ONU population, open the console"
	@echo "make test     build and run the tests"
	@echo "make check    run every other gate: scripts/check_*.sh"
	@echo "make bench    measure: a table, $(BENCH_BUILD)/results.json and a plot"
	@echo "make pictures draw the pictures of the documents anew"
	@echo "make docs     make the reference of the public headers: build-docs/html"
	@echo "make install  install the library, its headers and olt_host"
	@echo "make packages build the Debian packages: build-packages"
	@echo "make clean    remove what was built"
