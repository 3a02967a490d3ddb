# The two commands that a newcomer needs are `make run` and `make test`.
BUILD := build
HOST := $(BUILD)/src/olt_host/olt_host
CATALOGUE := data/catalogue.yaml
REPORTS := data/reports.yaml
CMAKE_FLAGS :=

.PHONY: run test build configure check install clean help

run: configure
	@echo "==> Building olt_host in $(BUILD)/"
	@cmake --build $(BUILD) --target olt_host
	@echo "==> Confirming the shipped ONU population"
	@scripts/run_host.sh $(HOST) $(CATALOGUE) $(REPORTS)

test: build
	@echo "==> Running the tests"
	@ctest --test-dir $(BUILD) --output-on-failure -j 2 --progress

build: configure
	@echo "==> Building everything in $(BUILD)/"
	@cmake --build $(BUILD)

configure:
	@scripts/install_packages.sh build
	@cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS) >$(BUILD).log 2>&1 || { cat $(BUILD).log; exit 1; }

check:
	@for gate in scripts/check_*.sh; do echo "==> $$gate"; $$gate || exit 1; done

install: build
	cmake --install $(BUILD)

clean:
	rm -rf build build-* *.log

help:
	@echo "make run      build, confirm the shipped ONU population, open the console"
	@echo "make test     build and run the tests"
	@echo "make check    run every other gate: scripts/check_*.sh"
	@echo "make install  install the library, its headers and olt_host"
	@echo "make clean    remove what was built"
