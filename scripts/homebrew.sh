# shellcheck shell=bash
# What ./run and ./test need on a Mac: the packages, from Homebrew (https://brew.sh), and a lock. Sourced
# by them. Apple's bash is of 2007 (3.2): no associative arrays, no mapfile, no `[[ -v`, no `exec {name}>`.

# To build the programs. Apple's compiler comes with the command line tools of Xcode, which Homebrew
# requires.
# shellcheck disable=SC2034  # read by the scripts that source this one
buildPackages=(
    cli11
    cmake
    libheif
    libplist
    ninja
    nlohmann-json
    openjpeg
    pkgconf
    qt
    sqlite
    utf8proc
    xxhash
)

# To build and run the tests.
# shellcheck disable=SC2034
testPackages=(
    ccache
    googletest
)

# There is no C.UTF-8 before macOS 15. shellcheck disable=SC2034
utf8Locale=en_US.UTF-8

# Installs those of the named packages that are missing, and lets CMake and pkg-config find those that
# Homebrew does not link into its own folders. Prints to standard error only.
ensurePackages() {
    local package installed prefix
    local -a missing=()
    if ! command -v brew >/dev/null; then
        printf 'Homebrew is missing. Install it as https://brew.sh says, then run this again.\n' >&2
        return 1
    fi
    installed=$(brew list --formula -1) || return 1
    for package in "$@"; do
        if ! grep -qxF -- "$package" <<<"$installed"; then
            missing+=("$package")
        fi
    done
    if ((${#missing[@]} > 0)); then
        printf 'Missing packages: %s\n' "${missing[*]}" >&2
        if ! brew install --quiet "${missing[@]}" </dev/null >&2; then
            printf 'Cannot install: %s\n' "${missing[*]}" >&2
            return 1
        fi
    fi
    prefix=$(brew --prefix) || return 1
    export CMAKE_PREFIX_PATH=$prefix${CMAKE_PREFIX_PATH:+:$CMAKE_PREFIX_PATH}
    export PKG_CONFIG_PATH=$prefix/opt/sqlite/lib/pkgconfig${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}
}

# Waits until no other process holds the lock of the open file with this number, and takes it. The
# shell holds it until it closes the file. There is no `flock`, but the system's Perl has the call.
lockOpenFile() {
    /usr/bin/perl -MFcntl=:flock -e 'open(my $file, ">&=", $ARGV[0]) or die "lock: $!\n";
        flock($file, LOCK_EX) or die "lock: $!\n"' "$1"
}

processorCount() {
    sysctl -n hw.ncpu
}
