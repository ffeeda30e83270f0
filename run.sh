#!/usr/bin/env bash
# Builds Talvora and opens it on an embedded database with the sample bank.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/packages.sh

ensure_packages "${build_packages[@]}" "${run_packages[@]}"
build_preset release
bin=build/release/bin

# Makes the database in a folder of its own, with a copy of the tool, which writes beside itself. Only when all is there
# does it come beside the program, the connection last: cut off at any point, the next run begins anew.
make_sample_bank() {
    local making=$bin/making file=talvora.db number=1
    while [ -e "$bin/$file" ]; do
        file=talvora-$((++number)).db
    done
    rm -rf "$making"
    mkdir "$making"
    cp "$bin/talvora-setup" "$making"
    "$making/talvora-setup" connect --embedded "$file"
    echo admin | "$making/talvora-setup" install
    "$making/talvora-setup" sample
    mv "$making/$file" "$bin"
    cp "$making/cfgserver.bin" "$bin/cfgserver.sample"
    mv "$making/cfgserver.bin" "$bin"
    rm -r "$making"
    echo "The sample bank is in $bin/$file; log in as admin with the password admin."
}

if ! findings=$("$bin/talvora-setup" check 2>&1); then
    if [ -e "$bin/cfgserver.bin" ]; then
        echo "$findings" >&2
        if ! cmp -s "$bin/cfgserver.bin" "$bin/cfgserver.sample"; then
            echo "This script did not write $bin/cfgserver.bin, so it leaves that connection alone. Mend it with" >&2
            echo "$bin/talvora-setup, or move cfgserver.bin away to get the sample bank." >&2
            exit 1
        fi
        echo "The sample bank is made anew; an old file stays where it is." >&2
    fi
    make_sample_bank
fi

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    ensure_packages "${vnc_packages[@]}"
    exec scripts/with-vnc-display.sh "${TALVORA_VNC_PORT:-5900}" "$bin/talvora"
fi
exec "$bin/talvora"
