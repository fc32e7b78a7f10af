#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Prints the ratio of test code to product code, installs what is missing, builds the Debug
# configuration with AddressSanitizer and UndefinedBehaviorSanitizer in build-debug/ and runs
# the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/test-ratio.sh
bash scripts/setup.sh
cmake -S . -B build-debug -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTES_SANITIZE=ON -DTES_WERROR=ON
cmake --build build-debug
cd build-debug
ctest --output-on-failure --timeout 300 "$@"
