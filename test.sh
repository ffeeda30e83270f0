#!/usr/bin/env bash
# Builds everything and runs every test without a display. Arguments go to ctest (-R NAME runs some).
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

ensure_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset developer
ctest --preset developer "$@"
