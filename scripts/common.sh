# Sourced by the scripts of the repository. When a step fails, its name and output are shown and, if this machine is the
# cause, a sentence says what to do.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

build_packages=(g++ cmake ninja-build pkg-config libxml2-dev libicu-dev nlohmann-json3-dev qt6-base-dev
    libdbus-1-dev)
test_packages=(libgtest-dev locales python3 python3-jsonschema strace xz-utils
    dbus libglib2.0-bin xvfb openbox at-spi2-core python3-pyatspi)
bench_packages=(libbenchmark-dev)
check_packages=(clang-19 clang-format-19 clang-tidy-19 cppcheck libc++-19-dev libc++abi-19-dev)
fuzz_packages=(clang-19 libclang-rt-19-dev libexpat1-dev)
upstreams="a C++20 compiler (GCC 12 or Clang 19, or later), CMake 3.25, Ninja, pkg-config, libxml2 2.9.14, ICU 72, \
nlohmann-json 3.11, Qt 6.4 (its base: Widgets, D-Bus, Network) and libdbus"

give_up() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Shows progress: on a terminal one line that is updated with the log's last line and the seconds, otherwise a new line
# every half minute. Runs in the background, so that Ctrl+C reaches the step itself.
watch_log() {
    local log=$1 start=$SECONDS line said=0 columns
    columns=$(tput cols 2>/dev/null || echo 80)
    while sleep 1 && kill -0 $$ 2>/dev/null; do
        line=$(tail -n 20 "$log" 2>/dev/null | tr '\r' '\n' | tr -d '\000-\011\013-\037' | grep -v '^ *$' | tail -n 1) || true
        if [ -t 1 ]; then
            line="   ${line:0:$((columns - 16))} ($((SECONDS - start)) s)"
            printf '\r\033[K%s' "$line"
        elif ((SECONDS - start >= said + 30)); then
            said=$((SECONDS - start))
            echo "   ${line:0:100} ($said s)"
        fi
    done
}

# If a failed step's output shows that this machine is the cause, prints what to do, in a sentence; otherwise nothing.
reason_for_failure() {
    local log=$1 folder full=
    for folder in "$root" "$(dirname "$log")" /var/cache/apt; do
        [ "$(df --output=avail "$folder" 2>/dev/null | tail -n 1)" -gt 1000 ] 2>/dev/null || full=$folder
    done
    [ -n "$full" ] || full=$(sed -n 's/.*enough free space in \(.*\)\.$/\1/p' "$log")
    if [ -n "$full" ] || grep -q 'No space left on device\|enough free space' "$log"; then
        echo "The disk is full (${full:-$root}): make room and start again; what is built is kept."
    elif grep -q 'Temporary failure resolving\|Could not connect to\|Unable to fetch some\|Failed to fetch\|Could not resolve' "$log"; then
        echo "The packages could not be downloaded: connect this machine to the network and start again."
    elif grep -q 'Unable to locate package\|has no installation candidate' "$log"; then
        echo "This system does not have all the packages; Corvane needs $upstreams."
    elif grep -q 'Could not get lock\|Unable to acquire the dpkg' "$log"; then
        echo "Another program is installing packages: wait until it has finished and start again."
    fi
}

# step NAME COMMAND…: shows the command's output only if it fails.
step() {
    local name=$1 log watcher reason status=0
    shift
    log=$(mktemp) || give_up "No file can be made in ${TMPDIR:-/tmp}: make room there and start again."
    echo "== $name"
    watch_log "$log" &
    watcher=$!
    disown
    "$@" >"$log" 2>&1 </dev/null || status=$?
    kill "$watcher" 2>/dev/null || true
    [ ! -t 1 ] || printf '\r\033[K'
    if [ "$status" -ne 0 ]; then
        reason=$(reason_for_failure "$log")
        tail -n "$([ -n "$reason" ] && echo 5 || echo 60)" "$log" >&2
        echo "Failed: $name ($*)" >&2
        [ -z "$reason" ] || echo "$reason" >&2
        rm -f "$log"
        exit "$status"
    fi
    rm -f "$log"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# install_packages NAME…: installs those that are missing, and says how much that downloads before it starts. Without
# apt-get it installs nothing; what is missing then shows when the build is configured.
install_packages() {
    local missing=() package
    command -v apt-get >/dev/null || return 0
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q ' installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        give_up "Packages are missing, and installing them takes root or sudo. As root, run:" \
            "apt-get install --no-install-recommends ${missing[*]}"
    fi
    [ "$(id -u)" -eq 0 ] || sudo -v || give_up "Installing packages takes the password of a user who may use sudo."
    step "Refreshing the package lists" as_root apt-get -o APT::Update::Error-Mode=any update
    echo "Missing: ${missing[*]}"
    as_root env LC_ALL=C apt-get install --assume-no --no-install-recommends "${missing[@]}" 2>/dev/null |
        grep -E '^(Need to get|After this operation)' || true
    step "Downloading and installing" as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET…]: configures if that was not done or not finished, then builds; an interrupted build resumes.
# The presets "release" and "tests" share a folder, so that each reuses what the other has built.
build() {
    local preset=$1 folder=$1
    shift
    cd "$root" || exit 1
    [ "$preset" != tests ] || folder=release
    mkdir -p "build/$folder" 2>/dev/null && [ -w "build/$folder" ] ||
        give_up "Nothing can be written in $root: clone Corvane into a folder of your own and start there."
    if [ ! -f "build/$folder/build.ninja" ] ||
        { [ "$preset" = tests ] && ! grep -q '^CORVANE_TESTS:BOOL=ON' "build/$folder/CMakeCache.txt"; }; then
        configure "$preset"
    fi
    step "Building ($preset)" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# configure PRESET
configure() {
    local tool
    for tool in cmake ninja c++; do
        command -v "$tool" >/dev/null || give_up "There is no $tool and no apt-get to install it. Corvane needs $upstreams."
    done
    if ! command -v apt-get >/dev/null; then
        echo "There is no apt-get here, so nothing was installed. Corvane needs $upstreams."
    fi
    step "Configuring ($1)" cmake --preset "$1"
}

# Makes a locale with a decimal comma, inside the build folder, for the test that numbers never pass through the locale.
make_test_locale() {
    local folder="$root/build/locale"
    [ -f "$folder/de_DE.UTF-8/LC_NUMERIC" ] && return
    mkdir -p "$folder"
    step "Generating the locale de_DE.UTF-8" localedef -i de_DE -f UTF-8 "$folder/de_DE.UTF-8"
}
