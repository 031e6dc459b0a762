#!/usr/bin/env bash
# one_instance.sh PROGRAM SAMPLES_FOLDER: with a bus of its own, which knows how to start the program.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
for tool in dbus-daemon gdbus python3; do
    command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is not installed"; exit 77; }
done

home=$(mktemp -d)
trap 'kill "${bus:-}" 2>/dev/null || true; rm -rf "$home"' EXIT
mkdir -p -m700 "$home/run" "$home/services/dbus-1/services"
cat >"$home/services/dbus-1/services/example.corvane.Corvane.service" <<END
[D-BUS Service]
Name=example.corvane.Corvane
Exec=$1
END
export HOME=$home XDG_RUNTIME_DIR=$home/run XDG_DATA_DIRS=$home/services QT_QPA_PLATFORM=offscreen
unset XDG_CONFIG_HOME XDG_DATA_HOME DISPLAY WAYLAND_DISPLAY
exec 3<>"$home/address"
dbus-daemon --session --nofork --print-address=3 2>/dev/null &
bus=$!
for ((i = 0; i < 100; i++)); do [ -s "$home/address" ] && break; sleep 0.05; done
DBUS_SESSION_BUS_ADDRESS=$(head -n1 "$home/address") /usr/bin/python3 "$here/one_instance.py" "$1" "$2"
