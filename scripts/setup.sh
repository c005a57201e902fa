# shellcheck shell=bash disable=SC2034  # Those who read this file use the lists.
# Shared by ./run, ./test and ./bench: installs what is missing (Debian 12, as root or with sudo) and builds.

# README.md tells what each package is for.
BUILD_PACKAGES=(build-essential cmake ninja-build ccache pkg-config qt6-base-dev qt6-base-dev-tools
libqt6svg6 libsqlite3-dev libsodium-dev unixodbc-dev unixodbc tdsodbc libhunspell-dev hunspell-en-us libcurl4-openssl-dev
ca-certificates libcmark-gfm-dev libcmark-gfm-extensions-dev fonts-dejavu-core)
# Only the tests use these, and only the benchmarks that one.
TEST_PACKAGES=(libgtest-dev libsqliteodbc xvfb xdotool dbus-daemon libical-dev python3-icalendar tidy chromium
qt6-webengine-dev python3-aiosmtpd openssl at-spi2-core)
BENCH_PACKAGES=(libbenchmark-dev)
# What scripts/package makes and checks packages with.
PACKAGE_PACKAGES=(debhelper qt6-webengine-dev lintian desktop-file-utils appstream man-db)

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
    if ! { DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends \
        -o APT::Status-Fd=1 $missing | apt_progress; }; then
        say "Installing failed. 'apt-get install $missing' tells why."
        return 1
    fi
}

# Shows how far something is: lines "PERCENT TEXT" become one line that is written over on a terminal, and a line each
# ten percent elsewhere.
show_progress() {
    local percent text last=-1 width
    width=$(($(tput cols 2>/dev/null || echo 80) - 1))
    while read -r percent text; do
        if [ -t 2 ]; then
            printf '\r\033[K%.*s' "$width" "  $percent % $text" >&2
        elif [ $((percent / 10)) -ne "$last" ]; then
            say "  $percent % $text"
        fi
        last=$((percent / 10))
    done
    if [ -t 2 ]; then printf '\r\033[K' >&2; fi
}

# What apt-get tells of itself ("dlstatus:1:12.5:Retrieving file 1 of 90") as progress; the download is the first half,
# and what the packages print between is passed over.
apt_progress() {
    local kind package percent text
    while IFS=: read -r kind package percent text; do
        case "$kind" in
            dlstatus) printf '%d downloading\n' "$((${percent%.*} / 2))" ;;
            pmstatus) printf '%d %s\n' "$((50 + ${percent%.*} / 2))" "${text:-$package}" ;;
        esac
    done | show_progress
}

# What the build tells ("[12/345] Building ...") as progress; all of it goes to the file.
build_progress() {
    local line
    while IFS= read -r line; do
        printf '%s\n' "$line" >>"$1"
        if [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
            printf '%d (step %d of %d)\n' "$((BASH_REMATCH[1] * 100 / BASH_REMATCH[2]))" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
        fi
    done | show_progress
}

# configure PRESET [SVS_TESTS|SVS_BENCHMARKS]: makes the build folder, with the tests or the benchmarks where they are
# asked for, so that the program alone needs none of their packages. A folder that has more than is asked for stays.
configure() {
    local preset=$1 part=${2:-} options="-DSVS_TESTS=OFF -DSVS_BENCHMARKS=OFF"
    if [ -f "build/$preset/build.ninja" ]; then
        [ -z "$part" ] && return 0
        grep -qx "$part:BOOL=ON" "build/$preset/CMakeCache.txt" && return 0
        options=""
    fi
    # shellcheck disable=SC2086
    cmake --preset "$preset" $options ${part:+"-D$part=ON"}
}

# build PRESET PART [TARGET...]: configures what is asked for ("" for the program alone) and builds; shows how far it is,
# and what the compiler says only when something fails.
build() {
    local preset=$1 part=$2 log
    shift 2
    log=$(mktemp)
    if configure "$preset" "$part" >"$log" 2>&1 &&
        cmake --build --preset "$preset" ${1:+--target "$@"} 2>&1 | build_progress "$log"; then
        rm -f "$log"
        return 0
    fi
    cat "$log" >&2
    rm -f "$log"
    say "The build failed."
    return 1
}
