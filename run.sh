#!/usr/bin/env bash
# Builds Talvora and opens it on an embedded database with the sample bank.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

ensure_packages "${build_packages[@]}" "${run_packages[@]}"
build_preset release
bin=build/release/bin

if [ ! -f "$bin/cfgserver.bin" ]; then
    rm -f "$bin"/talvora.db*
    "$bin/talvora-setup" connect --embedded talvora.db
    echo admin | "$bin/talvora-setup" install
    "$bin/talvora-setup" sample
    echo "The sample bank is in $bin/talvora.db; log in as admin with the password admin."
fi

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    port=${TALVORA_VNC_PORT:-5900}
    export QT_QPA_PLATFORM="vnc:size=1366x768:port=$port"
    echo "No display here: the window is served over VNC at localhost:$port (size 1366x768, no password)."
fi
exec "$bin/talvora"
