#!/usr/bin/env bash
# packaging/check.sh: builds the Debian packages from the source package, installs them on this machine, uses them and
# removes them again. Needs root.
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"

install_packages "${build_packages[@]}" appstream autopkgtest build-essential dbus debhelper desktop-file-utils dpkg-dev \
    libfile-mimeinfo-perl libglib2.0-bin libxml2-utils lintian python3 python3-jsonschema shared-mime-info xdg-utils
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
id=example.corvane.Corvane

expect() { # expect WHAT COMMAND…
    local what=$1
    shift
    if "$@"; then echo "ok: $what"; else echo "FAILED: $what ($*)" >&2; exit 1; fi
}

# What is committed, in a folder of its own, as a packager has it.
git -C "$root" archive --prefix=corvane/ HEAD | tar -x -C "$work"
cd "$work/corvane"
step "Building the packages" dpkg-buildpackage -us -uc
cd "$work"
expect "lintian finds no error and no warning" lintian --fail-on error,warning --allow-root ./*.changes
for package in corvane corvane-tools; do
    dpkg-deb -x ${package}_*.deb "$work/tree"
done
share=$work/tree/usr/share
expect "the desktop file is valid" desktop-file-validate "$share/applications/$id.desktop"
expect "the metainfo is valid" appstreamcli validate --no-net "$share/metainfo/$id.metainfo.xml"
expect "the MIME type is accepted" update-mime-database "$share/mime"
expect "the bus knows the installed program" grep -qx "Exec=/usr/bin/corvane" "$share/dbus-1/services/$id.service"
expect "the commands need no toolkit" bash -c '! dpkg-deb -f corvane-tools_*.deb Depends | grep -qi qt'

echo "== Installing the packages"
as_root dpkg -i corvane_*.deb corvane-tools_*.deb >/dev/null
files=$(dpkg -L corvane corvane-tools | while read -r path; do [ -d "$path" ] || echo "$path"; done)
expect "the package's own test passes" autopkgtest --no-built-binaries --quiet corvane_*.dsc -- null

export HOME=$work/home XDG_RUNTIME_DIR=$work/run QT_QPA_PLATFORM=offscreen
mkdir -p "$HOME"
mkdir -m700 "$XDG_RUNTIME_DIR"
unset DISPLAY WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME DBUS_SESSION_BUS_ADDRESS
expect "an exported project has our MIME type" \
    [ "$(xdg-mime query filetype "$root/samples/interview.fcpxml")" = application/x-corvane-fcpxml+xml ]

session=$HOME/.local/share/Corvane/session-v1.json
holds() { # holds PROJECT: waits until the program has loaded it and saved its session
    for ((i = 0; i < 100; i++)); do
        [ -f "$session" ] && base64 -d <<<"$(sed 's/.*"sourceXML":"\([^"]*\)".*/\1/; s,\\/,/,g' "$session")" 2>/dev/null |
            grep -q "<project name=\"$1\"" && return 0
        sleep 0.1
    done
    return 1
}
export -f holds
export root session id
dbus-run-session -- bash -c '
    open() {
        gdbus call --session --dest $id --object-path /${id//.//} --method org.freedesktop.Application.Open \
            "[\"file://$root/samples/$1.fcpxml\"]" "{}" >/dev/null
    }
    open interview && holds Interview && echo "ok: the bus starts the installed program with the project" || exit 1
    open sunday-service && holds "Sunday Service" && echo "ok: the running program takes the next one" || exit 1
    process=$(gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.GetConnectionUnixProcessID $id | tr -dc "0-9 " | cut -d" " -f2)
    kill "$process"
' 2>/dev/null

echo "== Removing the package"
as_root dpkg -r corvane corvane-tools >/dev/null
left=$(while read -r path; do [ ! -e "$path" ] || echo "$path"; done <<<"$files")
expect "nothing of the program is left" [ -z "$left" ]
expect "the user's own data is kept" [ -f "$session" ]
