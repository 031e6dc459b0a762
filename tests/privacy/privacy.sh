#!/usr/bin/env bash
# privacy.sh PROGRAM ROUGH_EDIT WINDOW_TESTS: opens a document that names files and hosts of all kinds, under strace, and
# holds every call against what the program has to do: read that one document, keep the session in the user's own folder,
# with the user's own mask, and say nothing of it anywhere. Ends with 77, which is "skipped", where nothing can be traced.
set -euo pipefail
program=$1
rough_edit=$2
window_tests=$3
source "$(dirname "$0")/../support/strace.sh"
skip_unless_traceable
home=$(realpath "$(mktemp -d)")
trap 'rm -rf "$home"' EXIT
mkdir -m700 "$home/run" "$home/work" "$home/exports"
for name in secret.xml secret.dtd secret.mov; do echo "the secret" >"$home/$name"; done
cat >"$home/work/project.fcpxml" <<END
<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE fcpxml SYSTEM "file://$home/secret.dtd" [
<!ENTITY inside SYSTEM "file://$home/secret.xml">
<!ENTITY web SYSTEM "http://127.0.0.1:9/secret.xml"> ]>
<fcpxml version="1.11" xmlns:xi="http://www.w3.org/2001/XInclude"><resources>
<format id="r1" frameDuration="1/25s"/>
<asset id="a1" duration="60s" hasVideo="1" hasAudio="1" src="file://$home/secret.mov"/>
<asset id="a2" duration="60s" hasVideo="1" hasAudio="1"><media-rep src="http://127.0.0.1:9/secret.mov"/></asset>
<media id="mc"><multicam format="r1"><mc-angle name="A" angleID="A"><asset-clip ref="a1" duration="60s"/></mc-angle>
<mc-angle name="B" angleID="B"><asset-clip ref="a2" duration="60s"/></mc-angle></multicam></media></resources>
<project name="Confidential Hearing"><sequence format="r1" duration="60s"><spine><mc-clip ref="mc" duration="60s">
<mc-source angleID="A" srcEnable="all"/><note><xi:include href="file://$home/secret.xml"/></note></mc-clip>
</spine></sequence></project></fcpxml>
END
# What only another file says is refused.
sed 's/<note>/&\&inside;\&web;/' "$home/work/project.fcpxml" >"$home/work/entities.fcpxml"
sed "s|]>|<!ENTITY % a SYSTEM \"http://127.0.0.1:9/secret.dtd\"> <!ENTITY % b SYSTEM \"file://$home/secret.dtd\"> %a; %b; ]>|" \
    "$home/work/project.fcpxml" >"$home/work/parameters.fcpxml"

export HOME=$home XDG_RUNTIME_DIR=$home/run QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS TMPDIR
umask 027
failed=0
complain() {
    echo "$1" >&2
    failed=1
}

# trace NAME COMMAND…: what the command did with files and sockets.
trace() {
    local name=$1
    shift
    strace -f --seccomp-bpf -qq -s 300 -e trace=%file,%network,ftruncate -o "$home/$name.trace" "$@" >"$home/$name.out" 2>&1 || true
}

session=$home/.local/share/Corvane/session-v1.json
(
    for ((i = 0; i < 300; i++)); do
        [ -s "$session" ] && break
        sleep 0.1
    done
    sleep 1
    pkill -TERM -f "^$program $home/work/project.fcpxml" || true
) &
trace window "$program" "$home/work/project.fcpxml"
wait
trace headless "$rough_edit" "$home/work/project.fcpxml" "$home/exports"
for refused in entities parameters; do
    trace $refused "$rough_edit" "$home/work/$refused.fcpxml" "$home/exports"
    grep -qE 'the entity “&inside;”|the parameter entity “%a;”' "$home/$refused.out" || complain "$refused were not refused."
done

# Each name names a file, and each place is looked at; a chooser shows files of all kinds.
trace names "$window_tests" --gtest_filter='HostileNames.*:FileDialogs.OpenNoFile*'
grep -q PASSED "$home/names.out" || complain "The window was not looked at with hostile names."
if grep -E 'secret\.png|open.*/shown' "$home/names.trace" | grep -vE 'O_WRONLY|unlink'; then
    complain "A file that a name in a document names was looked for, or one that a chooser shows was opened (above)."
fi
[ -s "$session" ] || complain "The window did not keep the session: nothing was looked at."
[ "$(find "$home/exports" -name '*.fcpxml' | wc -l)" = 1 ] || complain "The headless job wrote no export."
for name in window headless entities parameters; do
    traced=$home/$name.trace
    if grep -E 'secret\.(xml|dtd|mov)' "$traced"; then
        complain "$name: a file that the document names was looked for (above)."
    fi
    if grep -E '\b(socket|socketpair)\(' "$traced" | grep -vE 'AF_(UNIX|LOCAL)'; then
        complain "$name: a socket that leaves this machine was opened (above)."
    fi
    if grep -E '\b(open|openat|creat|mkdir|mkdirat|rename|renameat2?|link|linkat|symlink|truncate)\(' "$traced" |
        grep -E 'O_(WRONLY|RDWR|CREAT|TMPFILE)|\b(creat|mkdir|rename|link|symlink|truncate)' | grep -v ' = -1 ' |
        grep -vE "\"($home/(\.local|\.config|\.cache|run|exports)|/dev/(null|dri|shm/))" | grep -vE '"/proc/self/(fd|task)'; then
        complain "$name: something was written outside the user's own folders (above)."
    fi
done
if grep -E 'Confidential|secret' "$home/window.out"; then
    complain "The window printed something of the document (above)."
fi
modes=$(find "$home/.local/share/Corvane" "$home/exports" -type f -printf '%m %f\n' | grep -v '^640 ' || true)
[ -z "$modes" ] || complain "Files were not made with the user's mask (027): $modes"
[ "$failed" = 0 ] && echo "Nothing but its own files: $(wc -l <"$home/window.trace") and $(wc -l <"$home/headless.trace") calls looked at."
exit "$failed"
