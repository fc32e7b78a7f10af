#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the Release configuration in build/ and starts Tessera.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DTES_BUILD_TESTS=OFF
cmake --build build
exec build/bin/tessera "$@"
