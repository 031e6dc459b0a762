#!/usr/bin/env bash
# scripts/clean_machine.sh SUITE [COMMAND]: tries Corvane as a new user does. Makes a bare Debian (bookworm, trixie or
# sid, with bash and git and nothing else) in build/machines/SUITE, clones HEAD into it and runs COMMAND in the clone;
# without COMMAND, ./run.sh and ./test.sh. Exits with COMMAND's status, or with 75 and a one-line reason where no such
# Debian can be made (no root, no mirror). The machine's files stay until the next run; none of its processes do.
set -euo pipefail
source "$(dirname "$0")/common.sh"

suite=${1:?SUITE is missing: bookworm, trixie or sid}
command=${2:-./run.sh && ./test.sh}
machine=$root/build/machines/$suite
unavailable=75

skip() {
    echo "No bare $suite here: $*"
    exit $unavailable
}

[ "$(id -u)" -eq 0 ] || skip "making one takes root."
command -v apt-get >/dev/null && install_packages debootstrap git
command -v debootstrap >/dev/null || skip "there is no debootstrap."
rm -rf --one-file-system "$machine"
mkdir -p "$machine" "$root/build/machines/packages"
bootstrap() {
    debootstrap --variant=minbase --include=bash,git --cache-dir="$root/build/machines/packages" \
        "$suite" "$machine" "${CORVANE_MIRROR:-http://deb.debian.org/debian}"
}
echo "== Making a bare $suite"
bootstrap >"$root/build/machines/$suite.log" 2>&1 || bootstrap >"$root/build/machines/$suite.log" 2>&1 ||
    skip "debootstrap failed twice: $(tail -n 1 "$root/build/machines/$suite.log")"
# sid changes daily: a mirror that is some days old is good enough.
[ "$suite" != sid ] || echo 'Acquire::Check-Valid-Until "false";' >"$machine/etc/apt/apt.conf.d/mirror"
git clone --quiet --no-hardlinks "file://$root" "$machine/root/Corvane"

# With its own process table and mounts, whatever COMMAND leaves running ends with it.
export machine command
status=0
unshare --mount --pid --fork --kill-child bash -euo pipefail -c '
    mount --make-rprivate /
    mount -t proc proc "$machine/proc"
    mount -t sysfs -o ro sysfs "$machine/sys"
    mount --rbind /dev "$machine/dev"
    mount -t tmpfs -o mode=1777 tmpfs "$machine/dev/shm"
    exec env -i HOME=/root USER=root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        TERM="${TERM:-dumb}" \
        chroot "$machine" bash -c "cd /root/Corvane && $command"
' || status=$?
exit $status
