# Kartova: `make run` starts the editor on the demo ROM, `make test` runs every test.
# Both first install whatever is missing of the Debian packages the build needs.

PACKAGES := cmake ninja-build g++ make qt6-base-dev libgtest-dev libgmock-dev libbenchmark-dev \
            libgl-dev fonts-dejavu-core
SUDO := $(shell [ "$$(id -u)" -eq 0 ] || echo sudo)

.PHONY: run test build deps bench clean

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

bench: build
	./build/release/bench/kartova_bench

clean:
	rm -rf build
