# Sourced by the commands in the root of the repository. A step that fails says which it was and shows its output.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

build_packages=(g++ cmake ninja-build pkg-config libxml2-dev libicu-dev nlohmann-json3-dev qt6-base-dev)
test_packages=(libgtest-dev locales python3 strace xz-utils
    dbus libglib2.0-bin xvfb openbox at-spi2-core python3-pyatspi)
bench_packages=(libbenchmark-dev)
check_packages=(clang-19 clang-format-19 clang-tidy-19 cppcheck)
fuzz_packages=(clang-19 libclang-rt-19-dev)

# step NAME COMMAND…: silent while it goes well.
step() {
    local name=$1 log
    shift
    log=$(mktemp)
    echo "== $name"
    if ! "$@" >"$log" 2>&1; then
        echo "Failed: $name ($*)" >&2
        tail -n 60 "$log" >&2
        rm -f "$log"
        exit 1
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

# install_packages NAME…: those that are not there yet; nothing at all when none is missing.
install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q ' installed$' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    step "Refreshing the package lists" as_root apt-get update
    step "Installing ${missing[*]}" as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET…]
build() {
    local preset=$1
    shift
    cd "$root" || exit 1
    local first=
    if [ ! -f "build/$preset/build.ninja" ]; then
        step "Configuring ($preset)" cmake --preset "$preset"
        first=", which takes some minutes the first time"
    fi
    step "Building ($preset)$first" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# A locale with a decimal comma, for the test that numbers never pass through it. It stays inside the build folder.
make_test_locale() {
    local folder="$root/build/locale"
    [ -f "$folder/de_DE.UTF-8/LC_NUMERIC" ] && return
    mkdir -p "$folder"
    step "Generating the locale de_DE.UTF-8" localedef -i de_DE -f UTF-8 "$folder/de_DE.UTF-8"
}
