#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks the tree a Linux desktop expects, then
# builds the .deb package and checks its contents and dependencies.
#   check-install.sh BUILD_DIR
set -euo pipefail
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

cmake --install "$build" --prefix "$work/usr" >/dev/null
for f in bin/talavex bin/talavex-sim share/talavex/DefaultSettings.dat \
  share/applications/talavex.desktop share/icons/hicolor/scalable/apps/talavex.svg; do
  [ -e "$work/usr/$f" ] || fail "$f is not installed"
done
[ -x "$work/usr/bin/talavex" ] || fail "talavex is not executable"
[ -e "$work/usr/share/talavex/Web Manual/Index.html" ] || fail "the manual is not installed"
# The manual's links and pictures resolve in the installed tree, and no page is left unlinked.
manual="$work/usr/share/talavex/Web Manual"
links=$(grep -hoE '(src|href)="[^"#]+' "$manual"/*.html | sed 's/^[a-z]*="//' | grep -v '://' | sort -u)
for f in $links $(cd "$manual" && ls *.html); do
  [ -e "$manual/$f" ] && grep -qx "$f" <<<"$links" || fail "the installed manual misses or never links $f"
done
desktop-file-validate "$work/usr/share/applications/talavex.desktop" || fail "the desktop entry is not valid"
grep -q '^Exec=talavex --home$' "$work/usr/share/applications/talavex.desktop" \
  || fail "the desktop entry does not start talavex with its own folder"

# The installed program finds its factory settings and starts from a home folder of its own.
home="$work/home"
mkdir -p "$home"
HOME="$home" QT_QPA_PLATFORM=offscreen "$work/usr/bin/talavex" --home --startup-probe >/dev/null \
  || fail "the installed program does not start"
cmp -s "$home/TALAVEX/DefaultSettings.dat" "$work/usr/share/talavex/DefaultSettings.dat" \
  || fail "the home folder was not given the factory settings"

(cd "$build" && cpack -G DEB -B "$work/deb" >/dev/null) || fail "cpack could not build the package"
deb=$(ls "$work"/deb/talavex_*.deb | head -1)
[ -n "$deb" ] || fail "no .deb was built"
contents=$(dpkg-deb -c "$deb")
for f in ./usr/bin/talavex ./usr/bin/talavex-sim ./usr/share/applications/talavex.desktop \
  ./usr/share/talavex/DefaultSettings.dat; do
  grep -q " $f\$" <<<"$contents" || fail "$f is not in the package"
done
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libqt6widgets6 libqt6serialport6 libqcustomplot2.1-qt6 qt6-qpa-plugins; do
  grep -q "$lib" <<<"$depends" || fail "the package does not depend on $lib: $depends"
done
# A machine without Google Benchmark still configures the program and its tests.
source=$(cd "$(dirname "$0")/../.." && pwd)
cmake -S "$source" -B "$work/nobench" -G Ninja -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=TRUE \
  >"$work/nobench.log" 2>&1 || fail "configuring without Google Benchmark failed: $(tail -5 "$work/nobench.log")"
[ ! -e "$work/nobench/bench" ] || fail "the benchmarks were configured without Google Benchmark"
echo "1 passed, 0 failed"
