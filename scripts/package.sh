#!/usr/bin/env bash
# Builds the Debian package build/package/wavforge_<version>-1_<arch>.deb as a packager
# would: a plain Release configure (warnings are not errors there) with Debian's hardening
# flags, the program without tests or benchmarks, then cpack. Then lists lintian's findings.
# Install it with `sudo apt install ./build/package/wavforge_*.deb`.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
cmake -S . -B build/package -G Ninja -DCMAKE_BUILD_TYPE=Release -DWAVFORGE_BUILD_TESTS=OFF \
  -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)" \
  -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)" >/dev/null
cmake --build build/package
rm -f build/package/wavforge_*.deb
(cd build/package && cpack -G DEB)
deb=$(echo build/package/wavforge_*.deb)
echo
echo "== lintian $deb"
lintian --info --display-info "$deb" || true
echo
echo "Package: $deb"
