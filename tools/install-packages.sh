#!/usr/bin/env bash
# Installs the Debian packages that the build and the tests need, as far as they are missing.
set -euo pipefail

packages=(
    g++ cmake ninja-build make git python3 pkg-config
    libxerces-c-dev libace-dev xsdcxx nlohmann-json3-dev libcli11-dev
    libedit-dev
    libicu-dev libpcre2-dev
    libsqlite3-dev
    libssl-dev
    zlib1g-dev
    libgtest-dev libudunits2-dev
)
# For `make bench`, `make fuzz` and the tests only.
for extra in "$@"; do packages+=("$extra"); done

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

run=()
if [ "$(id -u)" -ne 0 ]; then run=(sudo); fi
echo "Installing: ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
"${run[@]}" apt-get update -qq
"${run[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
