# Shared by ./run, ./test and ./bench: installs what is missing (Debian 12, as root or with sudo) and builds.

# Compiles and runs the program; the comment in README.md tells what each package is for.
BUILD_PACKAGES="build-essential cmake ninja-build ccache pkg-config qt6-base-dev qt6-base-dev-tools libqt6sql6-odbc
libqt6svg6 libsqlite3-dev unixodbc-dev unixodbc tdsodbc libgtest-dev libbenchmark-dev fonts-dejavu-core"
# Only the tests use these.
TEST_PACKAGES="libsqliteodbc xvfb xauth xdotool dbus-daemon"

say() { printf '%s\n' "$*" >&2; }

missing_packages() {
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || printf '%s ' "$package"
    done
}

install_packages() {
    local missing as_root=""
    missing=$(missing_packages "$@")
    [ -z "$missing" ] && return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "These packages are missing, and installing them needs root or sudo: $missing"
            return 1
        fi
        as_root="sudo"
    fi
    say "Installing: $missing"
    $as_root apt-get update -qq >/dev/null || true
    # shellcheck disable=SC2086
    DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null || {
        say "Installing failed. Run 'apt-get install $missing' to see why."
        return 1
    }
}

# build PRESET [TARGET...]: configures once and builds; the output is shown only when something fails.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if ! { [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"; } >"$log" 2>&1 ||
        ! cmake --build --preset "$preset" ${1:+--target "$@"} >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        say "The build failed."
        return 1
    fi
    rm -f "$log"
}
