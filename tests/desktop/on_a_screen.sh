#!/usr/bin/env bash
# on_a_screen.sh STORY ARGUMENT…: runs the Python story in a session of its own with a screen, and with a home folder of
# its own.
set -euo pipefail
for tool in Xvfb openbox dbus-run-session; do
    command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is not installed"; exit 77; }
done

home=$(mktemp -d)
trap 'rm -rf "$home"; kill "${screen:-}" 2>/dev/null || true' EXIT
mkdir -m700 "$home/run"
exec 3<>"$home/display"
Xvfb -displayfd 3 -screen 0 1400x1000x24 >/dev/null 2>&1 &
screen=$!
for ((i = 0; i < 100; i++)); do [ -s "$home/display" ] && break; sleep 0.05; done
display=$(tr -d '\n' <"$home/display")
export DISPLAY=:$display HOME=$home XDG_RUNTIME_DIR=$home/run QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset XDG_CONFIG_HOME XDG_DATA_HOME QT_QPA_PLATFORM WAYLAND_DISPLAY
dbus-run-session -- bash -c 'openbox & /usr/bin/python3 "$@"; result=$?; kill %1; exit $result' _ "$@"
