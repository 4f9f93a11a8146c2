#!/usr/bin/env bash
# Installs the built program into a temporary DESTDIR and builds its Debian
# package, then checks both with the tools that consume them: the desktop
# entry, AppStream metadata, MIME file and man pages are validated, and the
# installed and unpacked programs are run from where they landed.
# Usage: install_test.sh BUILD_DIR
set -euo pipefail
build="$(cd "$1" && pwd)"
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
export ASAN_OPTIONS=detect_leaks=0
export HOME="$scratch/home" XDG_CONFIG_HOME="$scratch/home/config" XDG_CACHE_HOME="$scratch/home/cache"
mkdir -p "$HOME"
unset ORVANA_LIBRARY
fail() { echo "FAIL: $*" >&2; exit 1; }

# Both programs, run from `root` (a DESTDIR or an unpacked package): the
# command line designs a filter over the samples installed beside it, and the
# desktop program answers --version with no display at all.
check_programs() {
  local root="$1" library="$scratch/library-$2"
  "$root/usr/bin/orvana-cli" --version | grep -qx "orvana-cli [0-9.]*" || fail "orvana-cli --version ($2)"
  "$root/usr/bin/orvana-cli" filter --library "$library" --units norm --type lowpass --cutoff 0.25 \
      --taps 51 --window hann --json > "$scratch/filter-$2.json" || fail "orvana-cli filter ($2)"
  grep -q '"note"' "$scratch/filter-$2.json" || fail "orvana-cli filter printed no design ($2)"
  # Opening a sample seeds the library from the samples installed beside the program.
  "$root/usr/bin/orvana-cli" open filter lp300fc25 --library "$library" > /dev/null \
      || fail "orvana-cli open of a sample ($2)"
  [ -f "$library/filter/lp300fc25.filt" ] || fail "the installed samples were not found ($2)"
  local version
  version="$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$root/usr/bin/orvana" --version)" \
      || fail "orvana --version without a display ($2)"
  [[ "$version" =~ ^Orvana\ [0-9]+\.[0-9]+\.[0-9]+$ ]] || fail "orvana --version printed '$version' ($2)"
  env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$root/usr/bin/orvana" --help | grep -q "^Usage: orvana " \
      || fail "orvana --help ($2)"
}

# --- cmake --install into a DESTDIR -----------------------------------------
stage="$scratch/stage"
DESTDIR="$stage" cmake --install "$build" --prefix /usr > "$scratch/install.log" || fail "cmake --install"
share="$stage/usr/share"
for f in bin/orvana bin/orvana-cli share/orvana/samples/lp300fc25.filt share/orvana/samples/multirateUser300to450.orvana \
         share/applications/org.orvana.Orvana.desktop share/metainfo/org.orvana.Orvana.metainfo.xml \
         share/mime/packages/org.orvana.Orvana.xml share/icons/hicolor/scalable/apps/org.orvana.Orvana.svg \
         share/man/man1/orvana.1.gz share/man/man1/orvana-cli.1.gz share/bash-completion/completions/orvana-cli \
         share/doc/orvana/copyright share/doc/orvana/changelog.gz; do
  [ -e "$stage/usr/$f" ] || fail "not installed: $f"
done
for size in 48 128 256; do
  png="$share/icons/hicolor/${size}x${size}/apps/org.orvana.Orvana.png"
  file "$png" | grep -q "PNG image data, $size x $size" || fail "icon $png is not a $size px PNG"
done
[ ! -e "$share/orvana/fftw-wisdom" ] || fail "the build machine's FFT wisdom was installed"

desktop-file-validate "$share/applications/org.orvana.Orvana.desktop" || fail "desktop-file-validate"
appstreamcli validate --no-net "$share/metainfo/org.orvana.Orvana.metainfo.xml" || fail "appstreamcli validate"
xmllint --noout "$share/mime/packages/org.orvana.Orvana.xml" || fail "xmllint on the MIME file"
# The MIME database takes the file and maps each extension to its type.
mkdir -p "$scratch/mime/packages"
cp "$share/mime/packages/org.orvana.Orvana.xml" "$scratch/mime/packages/"
update-mime-database "$scratch/mime" 2>/dev/null
for pair in "*.filt:application/x-orvana-filter" "*.signal:application/x-orvana-signal" "*.orvana:application/x-orvana-project"; do
  grep -qF "${pair#*:}:${pair%%:*}" "$scratch/mime/globs" || fail "MIME glob ${pair%%:*}"
done
for page in orvana orvana-cli; do
  MANWIDTH=80 man -l "$share/man/man1/$page.1.gz" 2>"$scratch/man.err" > "$scratch/$page.txt" || fail "man -l $page"
  grep -q "$page" "$scratch/$page.txt" || fail "the $page man page is empty"
  grep -q -- "--help" "$scratch/$page.txt" || fail "the $page man page lacks its options"
done
bash -n "$share/bash-completion/completions/orvana-cli" || fail "bash completion syntax"
check_programs "$stage" stage

# The first start of the installed program measures the FFT plans in the
# background and keeps them in the user's cache folder.
wisdom="$XDG_CACHE_HOME/orvana/fftw-wisdom"
rm -f "$wisdom"
QT_QPA_PLATFORM=offscreen "$stage/usr/bin/orvana" --library "$scratch/library-gui" > "$scratch/gui.log" 2>&1 &
gui=$!
for _ in $(seq 1 60); do [ -s "$wisdom" ] && break; sleep 0.5; done
kill "$gui" 2>/dev/null || true
wait "$gui" 2>/dev/null || true
head -c 10 "$wisdom" 2>/dev/null | grep -q "(fftw-3" || fail "no FFT wisdom in the cache after the first start"

# --- the Debian package -------------------------------------------------------
(cd "$scratch" && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch/package" > "$scratch/cpack.log") \
    || { cat "$scratch/cpack.log" >&2; fail "cpack -G DEB"; }
deb="$(ls "$scratch"/package/orvana_*.deb)"
dpkg-deb -c "$deb" > "$scratch/contents"
for f in ./usr/bin/orvana ./usr/bin/orvana-cli ./usr/share/orvana/samples/lp300fc25.filt \
         ./usr/share/applications/org.orvana.Orvana.desktop ./usr/share/metainfo/org.orvana.Orvana.metainfo.xml \
         ./usr/share/mime/packages/org.orvana.Orvana.xml ./usr/share/man/man1/orvana-cli.1.gz \
         ./usr/share/icons/hicolor/256x256/apps/org.orvana.Orvana.png ./usr/share/doc/orvana/copyright \
         ./usr/share/doc/orvana/changelog.gz; do
  grep -q " $f\$" "$scratch/contents" || fail "the package lacks $f"
done
grep -q "fftw-wisdom" "$scratch/contents" && fail "the package carries FFT wisdom"
depends="$(dpkg-deb -f "$deb" Depends)"
for lib in libc6 libfftw3 libplist libqt6widgets6; do
  [[ "$depends" == *"$lib"* ]] || fail "Depends lacks $lib: $depends"
done
dpkg -x "$deb" "$scratch/unpacked"
file "$scratch/unpacked/usr/bin/orvana-cli" | grep -q ", stripped" || fail "the packaged programs are not stripped"
check_programs "$scratch/unpacked" unpacked

lintian --no-tag-display-limit "$deb" > "$scratch/lintian.txt" 2>&1 || true
if grep -q "^E: " "$scratch/lintian.txt"; then
  cat "$scratch/lintian.txt" >&2
  fail "lintian reports errors"
fi
echo "install and package checks passed ($(basename "$deb"))"
