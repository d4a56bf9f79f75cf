# shellcheck shell=bash
# Debian chroots for the scripts that test the program on a clean system. Sourced by bash; needs root
# and the Debian archive.

# Paths of the sources and of the ccache folder in a chroot.
sourcesInRoot=/srv/tarvin
cacheInRoot=/srv/ccache

# Fills a folder with the minimal system of a release ("bookworm"), or with a copy of the folder
# $TARVIN_MINIMAL_ROOT, and mounts /proc, /sys and /dev. $TARVIN_COMPILER_CACHE, if set, becomes its
# ccache folder. The caller must be in its own mount namespace and end with leaveRoot.
makeRoot() {
    local release=$1 folder=$2 log=$2.log
    if [[ -n ${TARVIN_MINIMAL_ROOT-} ]]; then
        cp -a --one-file-system -- "$TARVIN_MINIMAL_ROOT" "$folder"
    else
        debootstrap --variant=minbase "$release" "$folder" http://deb.debian.org/debian >"$log" || {
            tail -n 20 "$log" >&2
            printf 'No chroot could be created.\n' >&2
            return 1
        }
    fi
    cp -L /etc/resolv.conf "$folder/etc/"
    mount -t proc proc "$folder/proc"
    mount -t sysfs -o ro sysfs "$folder/sys"
    mount --rbind /dev "$folder/dev"
    if [[ -n ${TARVIN_COMPILER_CACHE-} ]]; then
        mkdir -p "$folder$cacheInRoot"
        mount --bind "$TARVIN_COMPILER_CACHE" "$folder$cacheInRoot"
    fi
    # Do not start services in the chroot.
    printf '#!/bin/sh\nexit 101\n' >"$folder/usr/sbin/policy-rc.d"
    chmod 755 "$folder/usr/sbin/policy-rc.d"
}

# Copies the committed state into a chroot.
cloneIntoRoot() {
    git -c safe.directory='*' clone --quiet . "$1$sourcesInRoot"
}

# Runs a command in a chroot as root, without the caller's environment.
inRoot() {
    local folder=$1
    shift
    chroot "$folder" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root \
        DEBIAN_FRONTEND=noninteractive CCACHE_DIR="$cacheInRoot" "$@"
}

# Removes a chroot, unless something is still mounted in it.
leaveRoot() {
    local folder=$1 place
    for place in /proc /sys /dev "$cacheInRoot" /tmp/.X11-unix; do
        umount --recursive --lazy "$folder$place" 2>/dev/null || true
    done
    if grep -qF " $folder/" /proc/self/mountinfo; then
        printf '%s is kept: something is mounted in it.\n' "$folder" >&2
    else
        rm -rf --one-file-system -- "$folder" "$folder.log"
    fi
}
