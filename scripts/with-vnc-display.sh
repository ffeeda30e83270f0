#!/usr/bin/env bash
# Runs a command on a display of its own that is served over VNC to this machine alone, and ends the display with it.
#   with-vnc-display.sh PORT COMMAND …
set -euo pipefail
port=$1
shift

private=$(mktemp -d)
chmod 700 "$private"
server='' manager='' program=''
end_display() {
    trap - EXIT INT TERM HUP
    for process in $program $manager $server; do
        kill "$process" 2>/dev/null || true
    done
    wait
    rm -rf "$private"
}
trap end_display EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

random_text() { head -c 256 /dev/urandom | tr -dc "$1" | cut -c "1-$2"; }

# VNC knows passwords of 8 characters. The cookie keeps other users of this machine from the display itself.
password=$(random_text 'a-hjkmnp-z2-9' 8)
cookie=$(head -c 16 /dev/urandom | od -An -tx1 | tr -d ' \n')
tigervncpasswd -f <<<"$password" >"$private/password"
export XAUTHORITY=$private/cookies
touch "$XAUTHORITY"
xauth -q add :0 . "$cookie"

mkfifo "$private/number"
Xtigervnc -displayfd 3 -rfbport "$port" -localhost -nolisten tcp -auth "$XAUTHORITY" \
    -SecurityTypes VncAuth -PasswordFile "$private/password" -AlwaysShared \
    -geometry 1366x768 -depth 24 -desktop Talvora 3>"$private/number" >"$private/log" 2>&1 &
server=$!
if ! read -r number <"$private/number"; then
    echo "The display could not be started. Is port $port in use? TALVORA_VNC_PORT names another." >&2
    tail -n 5 "$private/log" >&2
    exit 1
fi
export DISPLAY=:$number
xauth -q add "$DISPLAY" . "$cookie"
openbox >/dev/null 2>&1 &
manager=$!

cat <<TEXT
No display here: the window is served over VNC on this machine alone.
  here:            a VNC viewer on localhost:$port, password $password
  from elsewhere:  ssh -L $port:localhost:$port $(id -un)@$(uname -n)
                   and then a VNC viewer there on localhost:$port, the same password
TEXT
"$@" &
program=$!
status=0
wait "$program" || status=$?
program=''
exit "$status"
