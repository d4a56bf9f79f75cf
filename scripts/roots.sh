# shellcheck shell=bash
# Debian systems of their own in folders, for the scripts that try the program where nothing of it
# has been before. Sourced by bash; takes root and Debian's archive.

# Where the sources and the compiler's cache are in such a system.
sourcesInRoot=/srv/tarvin
cacheInRoot=/srv/ccache

# Fills a folder with the minimal system of a release ("bookworm"), or with a copy of the folder
# TARVIN_MINIMAL_ROOT of the environment, and mounts what programs expect. Where the environment has
# TARVIN_COMPILER_CACHE, that folder is the compiler's cache in there. The caller has mounts of its
# own, and ends with leaveRoot.
makeRoot() {
    local release=$1 folder=$2 log=$2.log
    if [[ -n ${TARVIN_MINIMAL_ROOT-} ]]; then
        cp -a --one-file-system -- "$TARVIN_MINIMAL_ROOT" "$folder"
    else
        debootstrap --variant=minbase "$release" "$folder" http://deb.debian.org/debian >"$log" || {
            tail -n 20 "$log" >&2
            printf 'There is no system to try it in.\n' >&2
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
    # Nothing in there starts services.
    printf '#!/bin/sh\nexit 101\n' >"$folder/usr/sbin/policy-rc.d"
    chmod 755 "$folder/usr/sbin/policy-rc.d"
}

# Puts what is committed into such a folder.
cloneIntoRoot() {
    git -c safe.directory='*' clone --quiet . "$1$sourcesInRoot"
}

# Runs a command in such a folder, as root and with nothing of the caller's environment.
inRoot() {
    local folder=$1
    shift
    chroot "$folder" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root \
        DEBIAN_FRONTEND=noninteractive CCACHE_DIR="$cacheInRoot" "$@"
}

# Removes such a folder, unless something of others is still mounted in there.
leaveRoot() {
    local folder=$1 place
    for place in /proc /sys /dev "$cacheInRoot" /tmp/.X11-unix; do
        umount --recursive --lazy "$folder$place" 2>/dev/null || true
    done
    if grep -qF " $folder/" /proc/self/mountinfo; then
        printf '%s is left: something is mounted in it.\n' "$folder" >&2
    else
        rm -rf --one-file-system -- "$folder" "$folder.log"
    fi
}
