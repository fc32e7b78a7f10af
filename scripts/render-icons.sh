#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Renders every hand-drawn SVG in src/resources/icons/src/ to a PNG of the
# same name in src/resources/icons/. The pixel size of each PNG is the
# width/height declared in its SVG. Safe to run again at any time; the PNGs
# are committed so that building does not need rsvg-convert.
set -euo pipefail

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
src_dir="$root/src/resources/icons/src"
out_dir="$root/src/resources/icons"

if ! command -v rsvg-convert >/dev/null 2>&1; then
    echo "render-icons: rsvg-convert not found (Debian package librsvg2-bin)" >&2
    exit 1
fi

shopt -s nullglob
svgs=("$src_dir"/*.svg)
if [ "${#svgs[@]}" -eq 0 ]; then
    echo "render-icons: no SVG files in $src_dir" >&2
    exit 1
fi

for svg in "${svgs[@]}"; do
    name="$(basename "$svg" .svg)"
    out="$out_dir/$name.png"
    tmp="$out.tmp"
    rsvg-convert --format=png --output="$tmp" "$svg"
    mv -f "$tmp" "$out"
    echo "rendered ${out#"$root"/}"
done
