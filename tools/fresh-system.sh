# shellcheck shell=bash
# shellcheck disable=SC2034,SC2154 # one is for who sources this, two are of setup.sh
# A Debian of its own, with nothing but what debootstrap brings, for what has to work on a bare machine.
# Sourced after setup.sh, by scripts that a person runs by hand and as root: it comes from the network, and takes
# up to 3 GB below the folder of temporary files, which are removed at the end.

fresh_root=""
fresh_mounts=() # what is mounted in it
# What stands before a command that is to run there, as root and with nothing of this machine's environment.
in_fresh_system=()

# make_fresh_system RELEASE LOG: its folder is then in fresh_root.
make_fresh_system() {
    [ "$(id -u)" -eq 0 ] || { printf 'This needs root, for debootstrap and chroot.\n' >&2; exit 1; }
    mkdir -p "$logs"
    install_packages fresh-system
    begin "fetching a fresh $1" "$2"
    fresh_root=$(mktemp -d)
    chmod 755 "$fresh_root" # apt's own user has to enter it
    debootstrap --variant=minbase "$1" "$fresh_root" >"$stage_log" 2>&1 || { tail -n 5 "$stage_log" >&2; exit 1; }
    mount -t proc proc "$fresh_root/proc"
    fresh_mounts+=(proc)
    in_fresh_system=(chroot "$fresh_root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin)
}

# megabytes_of_fresh_system [FOLDER]
megabytes_of_fresh_system() {
    du -sxm "$fresh_root/${1:-}" | cut -f 1
}

# show_displays_to_fresh_system: programs there reach the sockets of this machine's X servers.
show_displays_to_fresh_system() {
    mkdir -p "$fresh_root/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$fresh_root/tmp/.X11-unix"
    fresh_mounts+=(tmp/.X11-unix)
}

# Prints what it could not remove, and never fails: it runs where a failure would end the script without a word.
remove_fresh_system() {
    [ -n "$fresh_root" ] || return 0
    local folder mounted=""
    for folder in "${fresh_mounts[@]}"; do
        umount "$fresh_root/$folder" || mounted+=" $folder"
    done
    # What is mounted is this machine's own, so nothing is removed while it is.
    if [ -n "$mounted" ]; then
        printf 'Left behind: %s, where these are still mounted:%s\n' "$fresh_root" "$mounted" >&2
    else
        rm -rf --one-file-system "$fresh_root" || printf 'Left behind: %s\n' "$fresh_root" >&2
    fi
}
