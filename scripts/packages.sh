# shellcheck shell=bash
# What the project needs from Debian 12, in one place, and how it is installed. Sourced by ./run
# and ./test.

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

# To build and run the tests and the benchmarks, and to check the sources.
# shellcheck disable=SC2034
testPackages=(
    appstream
    at-spi2-core
    ccache
    clang-format
    clang-tidy
    dbus
    desktop-file-utils
    e2fsprogs
    fonts-dejavu-core
    fonts-liberation
    git
    gvfs
    iproute2
    libatspi2.0-dev
    libbenchmark-dev
    libgmock-dev
    libglib2.0-bin
    libgtest-dev
    man-db
    mount
    openbox
    python3
    shellcheck
    x11-utils
    xdotool
    xvfb
    zsh
)

# To make the package and to try it.
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

# To feed the readers of files with what chance makes.
# shellcheck disable=SC2034
fuzzPackages=(
    clang
    libclang-rt-14-dev
)

# Prints those of the named packages that are not installed, one a line.
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

# Installs what is missing of the named packages, as root or through sudo, and prints to standard
# error only. Does nothing, quickly, if nothing is missing.
ensurePackages() {
    local -a missing asRoot
    if ! command -v dpkg-query >/dev/null; then
        printf 'This is no Debian system: please install what is missing yourself.\n' >&2
        return 0
    fi
    mapfile -t missing < <(missingPackages "$@")
    if ((${#missing[@]} == 0)); then
        return 0
    fi
    printf 'Installing: %s\n' "${missing[*]}" >&2
    if ((EUID == 0)); then
        asRoot=(env)
    elif command -v sudo >/dev/null; then
        asRoot=(sudo env)
    else
        printf 'That takes root or sudo, and there is neither. As root, please run:\n' >&2
        printf '  apt-get update && apt-get install %s\n' "${missing[*]}" >&2
        return 1
    fi
    asRoot+=(DEBIAN_FRONTEND=noninteractive apt-get -qq -o Acquire::Retries=3
        -o DPkg::Lock::Timeout=300)
    if ! { "${asRoot[@]}" update && "${asRoot[@]}" install --no-install-recommends --yes \
        "${missing[@]}"; } </dev/null >&2; then
        printf 'Could not be installed: %s\n' "${missing[*]}" >&2
        return 1
    fi
}
