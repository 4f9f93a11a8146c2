#!/usr/bin/env bash
# Mutation check: plants small faults, one at a time, in the numerical core,
# the archive reader and writer and the three designer models, rebuilds, and
# runs the non-GUI test programs to see whether any test notices. Run by
# hand (it takes a while), not from scripts/test.sh:
#
#   bash scripts/mutation-check.sh [--list] [--only N[,N...]] [--build DIR]
#
# The tree is restored after every fault, and on exit or interrupt. A fault
# whose text is not found exactly once is reported as "not applied" and left
# out of the rate, so a stale entry can never count as caught.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$here/build/mutation"
only=""
list_only=0
while [ $# -gt 0 ]; do
  case "$1" in
    --build) build="$2"; shift 2 ;;
    --only) only=",$2,"; shift 2 ;;
    --list) list_only=1; shift ;;
    -h|--help) sed -n '2,11p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    *) echo "mutation-check: unknown option $1" >&2; exit 2 ;;
  esac
done

# One fault per line: file @@ text to find @@ replacement (\n for a new line).
faults=$(cat <<'EOF'
src/dsp/window.cpp @@ cosineTerm(-a1, 2.0 * kPi, x, s1); @@ cosineTerm(a1, 2.0 * kPi, x, s1);
src/dsp/vector_kernels.cpp @@ for (int k = 1; k <= 10; ++k) {\n        term @@ for (int k = 1; k < 10; ++k) {\n        term
src/dsp/vector_kernels.cpp @@ const auto t = hn::Sub(hn::Mul(hn::Set(d, 2.0), hn::LoadU(d, x + i)), one); @@ const auto t = hn::Add(hn::Mul(hn::Set(d, 2.0), hn::LoadU(d, x + i)), one);
src/dsp/window.cpp @@ const double signed_t = (i % 2 == 0) ? t : -t; @@ const double signed_t = (i % 2 == 0) ? -t : t;
src/dsp/window.cpp @@ const double step = 1.0 / static_cast<double>(N - 1); @@ const double step = 1.0 / static_cast<double>(N);
src/dsp/fir_synthesis.cpp @@ std::floor((static_cast<double>(N) * theta + 1.0) * 0.5) @@ std::floor((static_cast<double>(N) * theta) * 0.5)
src/dsp/fir_synthesis.cpp @@ for (std::size_t k = N - M; k < N; ++k) @@ for (std::size_t k = N - M + 1; k < N; ++k)
src/dsp/fir_synthesis.cpp @@ acc[k] += (k % 2 == 0) ? nyquist : -nyquist; @@ acc[k] += (k % 2 == 0) ? -nyquist : nyquist;
src/dsp/fir_synthesis.cpp @@ ? maxH / maxP : 1.0; @@ ? maxP / maxH : 1.0;
src/dsp/fir_synthesis.cpp @@ c[n] = (n % 2 == 0) ? -hw[n] : hw[n]; @@ c[n] = (n % 2 == 0) ? hw[n] : -hw[n];
src/dsp/fir_synthesis.cpp @@ c[n] = 2.0 * re[b] * hw[n]; @@ c[n] = re[b] * hw[n];
src/dsp/frequency_response.cpp @@ const std::size_t from = k == 0 ? 1 : k - 1; @@ const std::size_t from = k == 0 ? 1 : k + 1;
src/dsp/vector_kernels.cpp @@ step[j] = notch ? down : -up; @@ step[j] = notch ? -up : down;
src/dsp/filter_measurements.cpp @@ (at(k) + 3.0) / (at(k) - at(k + 1)) @@ (at(k) + 3.0) / (at(k) - at(k - 1))
src/dsp/filter_measurements.cpp @@ std::max(0.0, std::max(high, -low)) @@ std::max(0.0, std::max(high, low))
src/dsp/quantisation.cpp @@ ? kBitsPlusIndex - widthIndex : 0; @@ ? kBitsPlusIndex + 1 - widthIndex : 0;
src/dsp/unit_conversion.cpp @@ copyScaled(x1, code1 == 1 ? 1000.0 : 1.0, x1Out); @@ copyScaled(x1, code1 == 1 ? 1.0 : 1000.0, x1Out);
src/dsp/multirate.cpp @@ const std::size_t first = (up - i % up) % up; @@ const std::size_t first = (up - i % up);
src/dsp/sum_and_filter.cpp @@ sign2 == 1 ? -v2 : 0.0; @@ sign2 == 1 ? v2 : 0.0;
src/dsp/signal_generators.cpp @@ out[0] = 1.0; @@ out[0] = 0.0;
src/archive/binary_plist.cpp @@ if (top >= objectCount) { @@ if (top > objectCount) {
src/archive/keyed_archive_reader.cpp @@ if (count > maxCount) @@ if (count > maxCount + 1)
src/archive/keyed_archive_writer.cpp @@ if (key == "NSMutableArray")\n            plist_array_append_item @@ if (key == "NSArray")\n            plist_array_append_item
src/archive/filter_archive.cpp @@ else if (f.dfFilterLengthN && double(size) @@ else if (false && f.dfFilterLengthN && double(size)
src/archive/filter_archive.cpp @@ f.dfGimeldbLow = fromValue<double>(v[10]); @@ f.dfGimeldbLow = fromValue<double>(v[11]);
src/archive/project_archive.cpp @@ p.multirateM = fromValue<std::int64_t>(v[4]); @@ p.multirateM = fromValue<std::int64_t>(v[3]);
src/filter/filter_designer_model.cpp @@ if (d_.filterType == kFilterHighPass)\n        d_.thetaCutoffFreqNormalized = 1.0 @@ if (d_.filterType == kFilterBandPass)\n        d_.thetaCutoffFreqNormalized = 1.0
src/filter/filter_designer_model.cpp @@ d_.thetaCutoffFreqNormalized = cutoffFreq / half; @@ d_.thetaCutoffFreqNormalized = cutoffFreq / fs;
src/filter/filter_designer_model.cpp @@ fftFilterHalf(cp, dBmagnitude, {}); @@ fftFilterHalf(c, dBmagnitude, {});
src/filter/filter_designer_model_files.cpp @@ record.dfGimeldbHigh = saved.gimeldbHigh; @@ record.dfGimeldbHigh = saved.gimeldbLow;
src/signal/signal_designer_model.cpp @@ if (freq >= 0.5 * fs) @@ if (freq > 0.5 * fs)
src/signal/signal_designer_model.cpp @@ extremes.max, extremes.min, 0.0, 0.0}); @@ extremes.min, extremes.max, 0.0, 0.0});
src/project/project_model.cpp @@ stage.fs /= multirateL_; @@ stage.fs *= multirateL_;
src/project/project_model.cpp @@ fsOut = (static_cast<double>(multirateL_) * fs) / multirateM_; @@ fsOut = (static_cast<double>(multirateM_) * fs) / multirateL_;
src/project/project_model_files.cpp @@ putNumber(KEYMOD_SIG_ONE_SIGN, record->signalOneSign); @@ putNumber(KEYMOD_SIG_ONE_SIGN, record->signalTwoSign);
EOF
)

# The non-GUI test programs, cheapest first: the first one that fails ends
# the run for that fault.
programs=(dsp archive library filter signal project cli)

# Replaces the text exactly once; exit 3 when it is not there exactly once.
apply_fault() {
  python3 - "$1" "$2" "$3" <<'PY'
import sys
path, old, new = sys.argv[1], sys.argv[2].replace("\\n", "\n"), sys.argv[3].replace("\\n", "\n")
text = open(path, encoding="utf-8").read()
if text.count(old) != 1:
    sys.exit(3)
open(path, "w", encoding="utf-8").write(text.replace(old, new))
PY
}

if [ "$list_only" = 1 ]; then
  n=0
  while IFS= read -r line; do
    n=$((n + 1))
    printf '%2d  %s\n' "$n" "$line"
  done <<<"$faults"
  exit 0
fi

export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
export CCACHE_BASEDIR="$here"  # a copy of the tree elsewhere shares the cache
nice cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_FLAGS_DEBUG=-O1 -DCMAKE_C_FLAGS_DEBUG=-O1 \
  -DORVANA_STRICT=OFF -DORVANA_SANITIZE=OFF -DORVANA_BUILD_BENCH=OFF >/dev/null

backup="$(mktemp -d)"
current=""
restore() {
  if [ -n "$current" ]; then
    cp "$backup/file" "$here/$current"
    touch "$here/$current"  # newer than the mutant's object: it is rebuilt
    current=""
  fi
}
trap 'restore; rm -rf "$backup"' EXIT
trap 'exit 130' INT TERM

build_and_run() {  # $1: the fault's folder, tried first; prints the program that failed, or nothing
  local order=("${programs[@]}")
  [ -n "${1:-}" ] && order=("$1" "${programs[@]/$1/}")
  for p in "${order[@]}"; do
    [ -n "$p" ] || continue
    if ! nice cmake --build "$build" --target "orvana_test_$p" >"$backup/build.log" 2>&1; then
      echo "build:$p"
      return
    fi
    if ! (cd "$build" && QT_QPA_PLATFORM=offscreen timeout 600 nice "tests/orvana_test_$p" \
          --gtest_brief=1 --gtest_fail_fast >"$backup/run.log" 2>&1); then
      echo "$p"
      return
    fi
  done
}

echo "Checking the unmutated tree..."
if [ -n "$(build_and_run)" ]; then
  echo "mutation-check: the tests fail without any fault; fix them first" >&2
  exit 1
fi

n=0 caught=0 missed=0 skipped=0
missed_list=""
while IFS= read -r line; do
  n=$((n + 1))
  [ -n "$only" ] && [[ "$only" != *",$n,"* ]] && continue
  file="${line%% @@ *}"
  rest="${line#* @@ }"
  old="${rest%% @@ *}"
  new="${rest#* @@ }"
  cp "$here/$file" "$backup/file"
  current="$file"
  if ! apply_fault "$here/$file" "$old" "$new"; then
    current=""
    skipped=$((skipped + 1))
    printf '%2d  not applied  %s: %s\n' "$n" "$file" "$old"
    continue
  fi
  area="${file#src/}"
  area="${area%%/*}"
  by="$(build_and_run "$area")"
  restore
  if [[ "$by" == build:* ]]; then
    skipped=$((skipped + 1))
    printf '%2d  no build     %s: %s\n' "$n" "$file" "$old"
  elif [ -n "$by" ]; then
    caught=$((caught + 1))
    printf '%2d  caught (%s)  %s: %s\n' "$n" "$by" "$file" "$old"
  else
    missed=$((missed + 1))
    missed_list="$missed_list $n"
    printf '%2d  MISSED       %s: %s\n' "$n" "$file" "$old"
  fi
done <<<"$faults"

total=$((caught + missed))
echo
echo "faults tried: $total (not applied or not built: $skipped)"
echo "caught: $caught  missed: $missed${missed_list:+ (#$missed_list)}"
if [ "$total" -gt 0 ]; then
  awk -v c="$caught" -v t="$total" 'BEGIN { printf "kill rate: %.1f%%\n", 100 * c / t }'
fi
