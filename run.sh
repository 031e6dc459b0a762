#!/usr/bin/env bash
# ./run.sh [PROJECT.fcpxml]: opens Corvane with the project. Without one, it opens the last session or, if there is none,
# a sample. Without a display, it writes a rough edit of the project to ./exports instead.
set -euo pipefail
source "$(dirname "$0")/scripts/common.sh"

install_packages "${build_packages[@]}"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    [ -n "${DISPLAY:-}" ] || install_packages qt6-wayland
    build release corvane
    session=${XDG_DATA_HOME:-$HOME/.local/share}/Corvane/session-v1.json
    if [ $# -gt 0 ]; then
        exec "$root/build/release/src/application/corvane" "$@"
    elif [ -f "$session" ]; then
        exec "$root/build/release/src/application/corvane"
    fi
    exec "$root/build/release/src/application/corvane" "$root/samples/sunday-service.fcpxml"
fi

echo "There is no display: making a rough edit without the window."
project=$(realpath -- "${1:-$root/samples/sunday-service.fcpxml}")
build release corvane-edit
mkdir -p "$root/exports"
exec "$root/build/release/src/tools/corvane-edit" "$project" "$root/exports"
