#!/usr/bin/env bash
# Fails when a C++ file differs from what clang-format makes of it
# (.clang-format); run `clang-format -i` on the files it names.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z -- '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
