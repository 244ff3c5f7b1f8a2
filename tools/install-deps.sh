#!/usr/bin/env bash
# Installs the Debian packages the build and the Wine runs need, when missing.
# Safe to run again: it does nothing when everything is there.
set -euo pipefail
packages=(
  cmake make
  g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64
  wine wine64
  googletest
  gfortran                               # reads the namelist files in the tests
  fonts-liberation fonts-ipafont-gothic  # fixed fonts: text results depend on them
)
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
