# Kartova: `make run` starts the editor on the demo ROM, `make test` runs every test and a short
# run of every fuzz target, `make fuzz` fuzzes for longer (FUZZ_SECONDS per target).
# `make package` makes a .deb of the optimised build.
# All first install whatever is missing of the Debian packages the build needs.

PACKAGES := cmake ninja-build g++ make qt6-base-dev libgtest-dev libgmock-dev libbenchmark-dev \
            libgl-dev fonts-dejavu-core clang libclang-rt-14-dev libpng-dev nlohmann-json3-dev
# The install and the .deb: the icon's PNG sizes, the package's library dependencies, and the
# checks of the desktop entry and the AppStream file in the install test.
PACKAGES += librsvg2-bin dpkg-dev desktop-file-utils appstream
# The English translation (lrelease, lupdate) and Qt's own translations of its buttons and dialogs.
PACKAGES += qt6-l10n-tools qt6-translations-l10n
SUDO := $(shell [ "$$(id -u)" -eq 0 ] || echo sudo)

# Seconds each fuzz target runs in `make fuzz`, and how many run side by side.
FUZZ_SECONDS ?= 600
FUZZ_JOBS ?= 2
export FUZZ_JOBS

.PHONY: run test build deps bench clean fuzz-build fuzz-smoke fuzz package

deps:
	@missing=""; \
	for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update && \
	  $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y $$missing; \
	fi

build: deps
	cmake --preset release
	cmake --build --preset release

run: build
	./build/release/kartova-cli make-demo build/release/demo
	./build/release/kartova-cli install-definition build/release/demo/demo.ini
	./build/release/kartova build/release/demo/demo.gbc

test: deps
	cmake --preset test
	cmake --build --preset test
	ctest --preset test
	$(MAKE) --no-print-directory fuzz-smoke

# The libFuzzer targets (clang) and their seed corpora, written fresh into build/fuzz/corpus.
fuzz-build: deps
	cmake --preset fuzz
	cmake --build --preset fuzz
	rm -rf build/fuzz/corpus
	./build/fuzz/fuzz_seeds build/fuzz/corpus

# 20 seconds of every target, each on a temporary copy of its seeds.
fuzz-smoke: fuzz-build
	bash fuzz/run_fuzzers.sh smoke 20

# The corpora grow in build/fuzz/long-corpus/<target>; the next run goes on from there.
fuzz: fuzz-build
	bash fuzz/run_fuzzers.sh long $(FUZZ_SECONDS)

# The .deb of an optimised build: build/release/kartova_VERSION_ARCH.deb.
package: build
	cd build/release && cpack -G DEB

bench: build
	./build/release/bench/kartova_bench

clean:
	rm -rf build
