#!/usr/bin/env bash
# Prints the tests' share of the non-blank C++ lines under src/ and tests/
# (fuzz targets and test support included) and fails above the cap.
set -euo pipefail
cd "$(dirname "$0")/.."
cap=33

count() {
  git ls-files -- "$1" | grep -E '\.(cpp|h)$' | tr '\n' '\0' | xargs -0 cat | grep -cv '^[[:space:]]*$'
}

code=$(count src)
tests=$(count tests)
share=$((100 * tests / (code + tests)))
tenths=$((1000 * tests / (code + tests) % 10))
echo "tests: $tests of $((code + tests)) non-blank C++ lines ($share.$tenths%; cap $cap%)"
if ((tests * 100 > cap * (code + tests))); then
  echo "tests are above $cap% of the code: remove what restates the code or what another test catches" >&2
  exit 1
fi
