#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, and only those that are missing.
# With --list it only prints the packages, one a line (the setup test reads them from here).
set -euo pipefail

packages=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-charts-dev libqt6opengl6-dev qt6-qpa-plugins libgl-dev
    libexpat1-dev liblcms2-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libxcb1-dev xvfb xauth xdotool icc-profiles-free
    qt6-tools-dev qt6-l10n-tools qt6-translations-l10n
    desktop-file-utils appstream shared-mime-info dpkg-dev man-db
    clang clang-format libclang-rt-14-dev git
)

if [ "${1:-}" = --list ]; then
    printf '%s\n' "${packages[@]}"
    exit 0
fi

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing missing packages: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Run as root, or install: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
