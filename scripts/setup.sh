# Shared by ./run, ./test and ./bench: installs what is missing (Debian 12, as root or with sudo) and builds.

# README.md tells what each package is for.
BUILD_PACKAGES="build-essential cmake ninja-build ccache pkg-config qt6-base-dev qt6-base-dev-tools
libqt6svg6 libsqlite3-dev unixodbc-dev unixodbc tdsodbc libgtest-dev libbenchmark-dev fonts-dejavu-core"
# Only the tests use these.
TEST_PACKAGES="libsqliteodbc xvfb xdotool dbus-daemon libical-dev"

say() { printf '%s\n' "$*" >&2; }

# The packages among the arguments that are not installed.
missing_packages() {
    local installed package
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null | sed -n 's/ installed$//p')
    for package in "$@"; do
        grep -qx "$package" <<<"$installed" || printf '%s ' "$package"
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
    if ! DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null; then
        say "Installing failed. 'apt-get install $missing' tells why."
        return 1
    fi
}

# build PRESET [TARGET...]: configures once and builds; the output is shown only when something fails.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if { [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"; } >"$log" 2>&1 &&
        cmake --build --preset "$preset" ${1:+--target "$@"} >"$log" 2>&1; then
        rm -f "$log"
        return 0
    fi
    cat "$log" >&2
    rm -f "$log"
    say "The build failed."
    return 1
}
