# shellcheck shell=bash
# The Debian 12 and 13 packages that the project needs, and their installation. Sourced by ./run,
# ./test and the scripts in this folder.

# Prints the release of this system: bookworm is Debian 12, trixie is Debian 13.
releaseName() {
    local name='' value
    while IFS='=' read -r name value; do
        [[ $name != VERSION_CODENAME ]] || printf '%s' "${value//\"/}"
    done 2>/dev/null </etc/os-release
}

# To build the programs.
# shellcheck disable=SC2034  # read by the scripts that source this one
buildPackages=(
    cmake
    g++
    libcli11-dev
    libglib2.0-dev
    libheif-dev
    libopenjp2-7-dev
    libplist-dev
    libsqlite3-dev
    libutf8proc-dev
    libxxhash-dev
    ninja-build
    nlohmann-json3-dev
    pkg-config
    qt6-base-dev
    qt6-image-formats-plugins
    qt6-l10n-tools
    qt6-svg-dev
    qt6-tools-dev
    qt6-tools-dev-tools
    qt6-wayland
)
if [[ $(releaseName) != bookworm ]]; then
    buildPackages+=(qt6-svg-plugins)  # a part of qt6-svg-dev before
fi

# To build and run the tests and benchmarks, and to check the sources. The verdicts of clang-format
# and clang-tidy depend on their version: both releases have 19.
# shellcheck disable=SC2034
testPackages=(
    appstream
    at-spi2-core
    bindfs
    bsdextrautils
    ccache
    clang-19
    clang-format-19
    clang-tidy-19
    dbus
    desktop-file-utils
    e2fsprogs
    fonts-dejavu-core
    fonts-liberation
    fonts-wqy-microhei
    fuse3
    git
    gvfs
    iproute2
    jq
    libatspi2.0-dev
    libbenchmark-dev
    libc++-19-dev
    libc++abi-19-dev
    libfuse3-dev
    libgmock-dev
    libglib2.0-bin
    libgtest-dev
    man-db
    mount
    openbox
    python3
    qt6-translations-l10n
    shellcheck
    trash-cli
    x11-utils
    xdotool
    xvfb
    zsh
)

# For the package smoke test.
# shellcheck disable=SC2034
packagingPackages=(
    debootstrap
    dpkg-dev
    file
    imagemagick
    lintian
    openbox
    x11-utils
    xdotool
    xvfb
)

# To cross-compile the terminal program for macOS.
# shellcheck disable=SC2034
macosPackages=(
    ca-certificates
    cmake
    curl
    debian-archive-keyring
    file
    g++
    libcli11-dev
    make
    ninja-build
    nlohmann-json3-dev
    pkg-config
    python3
    tcl
)

# For fuzzing.
# shellcheck disable=SC2034
fuzzPackages=(
    clang-19
    libclang-rt-19-dev
)

# shellcheck disable=SC2034
utf8Locale=C.UTF-8

# Waits until no other process holds the lock of the open file with this number, and takes it. The
# shell holds it until it closes the file.
lockOpenFile() {
    flock "$1"
}

processorCount() {
    nproc
}

# Prints the named packages that are not installed, one per line.
missingPackages() {
    local -A installed=()
    local status package
    while read -r status package; do
        if [[ $status == installed ]]; then
            installed[$package]=1
        fi
    done < <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null)
    for package in "$@"; do
        if [[ ! -v installed[$package] ]]; then
            printf '%s\n' "$package"
        fi
    done
}

# Runs its arguments with their output in the log, which is printed if they fail.
inLog() {
    local log=$1
    shift
    if ! "$@" </dev/null >>"$log" 2>&1; then
        tail -n 30 -- "$log" >&2
        return 1
    fi
}

# Installs those of the named packages that are missing, as root or with sudo. Prints to standard
# error only. Returns quickly if none is missing.
ensurePackages() {
    local -a missing asRoot=() install=(apt-get install --no-install-recommends)
    local log amount
    if ! command -v dpkg-query >/dev/null; then
        printf 'Not a Debian system: install the missing packages yourself (see README.md).\n' >&2
        return 0
    fi
    mapfile -t missing < <(missingPackages "$@")
    if ((${#missing[@]} == 0)); then
        return 0
    fi
    printf 'Missing packages: %s\n' "${missing[*]}" >&2
    if (($(id -u) != 0)); then
        if ! command -v sudo >/dev/null; then
            printf 'Installing them requires root or sudo. As root, run:\n' >&2
            printf '  apt-get update && %s %s\n' "${install[*]}" "${missing[*]}" >&2
            return 1
        fi
        asRoot=(sudo)
    fi
    log=$(dirname -- "${BASH_SOURCE[0]}")/../build/packages.log
    mkdir -p -- "${log%/*}"
    : >"$log"
    asRoot+=(env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive)
    install=("${asRoot[@]}" apt-get -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300
        "${install[@]:1}")
    if inLog "$log" "${asRoot[@]}" apt-get -q -o Acquire::Retries=3 update; then
        # apt-get fails if the answer is "no".
        amount=$({ "${install[@]}" --assume-no "${missing[@]}" || true; } </dev/null 2>/dev/null |
            sed -n 's/^Need to get \(.*\) of archives\.$/\1/p')
        printf 'Downloading and installing %s; log: %s\n' "${amount:-them}" \
            "$(readlink -f -- "$log")" >&2
        ! inLog "$log" "${install[@]}" -q --yes "${missing[@]}" || return 0
    fi
    printf 'Cannot install: %s\n' "${missing[*]}" >&2
    return 1
}
