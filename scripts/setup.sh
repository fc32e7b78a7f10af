#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that building and testing Tessera need, and only those missing.
set -euo pipefail

# zipcmp, zipmerge and ziptool: Debian's libzip CMake package names them and fails without them.
packages=(g++ cmake ninja-build qtbase5-dev libzip-dev zipcmp zipmerge ziptool zip unzip)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    echo "Installing: ${missing[*]}"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
