#!/usr/bin/env bash
# on_a_screen.sh STORY ARGUMENT…: runs the Python story on a screen of its own.
set -euo pipefail
for tool in Xvfb openbox dbus-daemon; do
    command -v "$tool" >/dev/null || { echo "SKIPPED: $tool is not installed"; exit 77; }
done
/usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null ||
    { echo "SKIPPED: python3-pyatspi is not installed"; exit 77; }

number=$(mktemp)
trap 'rm -f "$number"; kill "${screen:-}" 2>/dev/null || true' EXIT
Xvfb -displayfd 3 -screen 0 1400x1000x24 3>"$number" >/dev/null 2>&1 &
screen=$!
for ((i = 0; i < 100; i++)); do [ -s "$number" ] && break; sleep 0.05; done
DISPLAY=:$(tr -d '\n' <"$number")
export DISPLAY QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset QT_QPA_PLATFORM WAYLAND_DISPLAY
openbox 2>/dev/null &
/usr/bin/python3 -B "$@"
