#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Prints how many lines of test code there are against product code (src and plugins): the
# tests are kept at no more than half the product.
set -euo pipefail
cd "$(dirname "$0")/.."

count() { find "$@" \( -name '*.cpp' -o -name '*.h' \) -type f -print0 | xargs -0 cat | wc -l; }
tests=$(count tests)
product=$(count src plugins)
echo "test code: ${tests} lines, product code: ${product} lines, ratio $((100 * tests / product))%"
