#!/usr/bin/env bash
# The robustness checks beyond the ordinary test run. First the whole test
# suite is built with AddressSanitizer and UndefinedBehaviorSanitizer (gcc,
# -DKTR_SANITIZE=ON) into build-asan/ and run there with leak detection on;
# any finding, leaks included, fails its test (the suite runs clean without
# suppressions). Then the libFuzzer targets of tests/fuzz are built with
# clang into build-fuzz/ and each is run for a short bounded time
# (FUZZ_SECONDS, 20 by default) over its seed corpus in
# tests/fuzz/corpus/<target>/, two at a time; inputs the fuzzer finds are
# kept in a scratch folder, never in the repository, and a crash leaves its
# input in build-fuzz/artifacts/. Installs what it lacks, like setup.sh, and
# is safe to run again (the builds are incremental).
set -euo pipefail
cd "$(dirname "$0")/.."

. scripts/packages.sh
ensure_packages "${base_packages[@]}" clang libclang-rt-14-dev llvm

jobs=$(nproc 2>/dev/null || echo 2)
started=$SECONDS

# --- sanitizers ----------------------------------------------------------------
echo "== sanitizer build (build-asan)"
cmake -S . -B build-asan -DKTR_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build build-asan -j"$jobs"
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1
export UBSAN_OPTIONS=print_stacktrace=1
ctest --test-dir build-asan --output-on-failure -j"$jobs"
echo "== sanitizer tests passed after $((SECONDS - started)) s"

# --- fuzzing ----------------------------------------------------------------------
echo "== fuzz targets (build-fuzz)"
cmake -S . -B build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DKTR_FUZZ=ON -DKTR_GUI=OFF -DKTR_TESTS=OFF -DKTR_WERROR=ON \
  -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-g -O1" >/dev/null
cmake --build build-fuzz -j"$jobs" --target fuzz

seconds=${FUZZ_SECONDS:-20}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p build-fuzz/artifacts
run_target() {
  local name=$1
  mkdir -p "$scratch/$name"
  if ./build-fuzz/fuzz_"$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
      -print_final_stats=1 -artifact_prefix="build-fuzz/artifacts/$name-" \
      "$scratch/$name" "tests/fuzz/corpus/$name" >"$scratch/$name.log" 2>&1; then
    echo "fuzz_$name: $(grep -o 'number_of_executed_units: [0-9]*' "$scratch/$name.log")"
  else
    echo "fuzz_$name FAILED:"
    tail -n 40 "$scratch/$name.log"
    return 1
  fi
}
targets=(seqreader parafile opdatafile devicelist stdparalist errorlist linkreceive journal)
status=0
for ((i = 0; i < ${#targets[@]}; i += 2)); do
  pids=()
  for name in "${targets[@]:i:2}"; do
    run_target "$name" &
    pids+=($!)
  done
  for pid in "${pids[@]}"; do
    wait "$pid" || status=1
  done
done
echo "== ci-extra done in $((SECONDS - started)) s"
exit $status
