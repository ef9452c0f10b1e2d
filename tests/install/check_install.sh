#!/usr/bin/env bash
# Installs a build into a staging prefix and checks what a user of the installed programs gets:
# every file in its place, a valid desktop entry and AppStream file, both programs running from
# the prefix, and the settings kept in the per-user configuration directory.
#
#   check_install.sh BUILD_DIR STAGE_DIR [with-ui]
set -euo pipefail

build=${1:?build dir}
stage=${2:?stage dir}
with_ui=${3:-}
prefix=$stage/usr

fail() { echo "check_install: $*" >&2; exit 1; }

rm -rf "$stage"
mkdir -p "$stage"
cmake --install "$build" --prefix "$prefix" >"$stage/install.log" || fail "cmake --install failed"

expected=(
  bin/kartova-cli
  share/man/man1/kartova-cli.1
  share/icons/hicolor/scalable/apps/kartova.svg
  share/kartova/demo/demo.gbc
  share/kartova/demo/demo.ini
  share/doc/kartova/README.md
  share/doc/kartova/cli.md
)
if [ -n "$with_ui" ]; then
  expected+=(
    bin/kartova
    share/man/man1/kartova.1
    share/applications/org.kartova.Kartova.desktop
    share/metainfo/org.kartova.Kartova.metainfo.xml
  )
fi
if command -v rsvg-convert >/dev/null; then
  for size in 16 24 32 48 64 128 256; do expected+=("share/icons/hicolor/${size}x${size}/apps/kartova.png"); done
fi
for f in "${expected[@]}"; do [ -s "$prefix/$f" ] || fail "missing after install: $f"; done
[ -x "$prefix/bin/kartova-cli" ] || fail "kartova-cli is not executable"

if [ -n "$with_ui" ]; then
  desktop-file-validate "$prefix/share/applications/org.kartova.Kartova.desktop" \
    || fail "the desktop entry is not valid"
  grep -q '^Exec=kartova %f$' "$prefix/share/applications/org.kartova.Kartova.desktop" \
    || fail "the desktop entry does not pass the file to kartova"
  appstreamcli validate --no-net "$prefix/share/metainfo/org.kartova.Kartova.metainfo.xml" \
    >"$stage/appstream.log" || fail "the AppStream file is not valid: $(cat "$stage/appstream.log")"
fi

# The installed programs run from the prefix, with a home of their own.
export HOME=$stage/home XDG_CONFIG_HOME=$stage/config
mkdir -p "$HOME"
"$prefix/bin/kartova-cli" --version | grep -qx 'kartova-cli [0-9.]*' || fail "kartova-cli --version"
if [ -n "$with_ui" ]; then
  QT_QPA_PLATFORM=offscreen "$prefix/bin/kartova" --version | grep -qx 'kartova [0-9.]*' \
    || fail "kartova --version"
fi

# With both selectors on "ini", the INI store of an installed program is the one in the
# configuration directory, never a file beside the program in bin/.
mkdir -p "$XDG_CONFIG_HOME/Kartova"
printf '[Settings]\nDefaultPropertyPath=ini\n' >"$XDG_CONFIG_HOME/Kartova/Kartova.ini"
printf '[Settings]\nDefaultPropertyPath=ini\n' >"$XDG_CONFIG_HOME/Kartova/Kartova.conf"
"$prefix/bin/kartova-cli" install-definition "$prefix/share/kartova/demo/demo.ini" >"$stage/define.log" \
  || fail "install-definition failed: $(cat "$stage/define.log")"
[ ! -e "$prefix/bin/Kartova.ini" ] || fail "an installed kartova-cli wrote Kartova.ini beside itself"
grep -q 'HeaderLength' "$XDG_CONFIG_HOME/Kartova/Kartova.ini" \
  || fail "the demo's definition did not reach $XDG_CONFIG_HOME/Kartova/Kartova.ini"
"$prefix/bin/kartova-cli" info "$prefix/share/kartova/demo/demo.gbc" >"$stage/info.json" \
  || fail "kartova-cli info on the installed demo failed"
grep -q '"mapCounts"' "$stage/info.json" || fail "info printed no map counts"
echo "check_install: ok"
