#!/usr/bin/env bash
# Installs, with apt-get, whatever of scripts/packages.txt is missing. Safe to rerun.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
mapfile -t wanted < <(grep -v -E '^\s*(#|$)' "$here/packages.txt")
missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done
if ((${#missing[@]})); then
    echo "Installing: ${missing[*]}"
    if [[ $(id -u) -ne 0 ]]; then sudo=sudo; else sudo=; fi
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
