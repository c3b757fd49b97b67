# shellcheck shell=bash
# shellcheck disable=SC2034,SC2154 # one is for who sources this, two are of setup.sh
# A Debian of its own, with nothing but what debootstrap brings, for what has to work on a bare machine.
# Sourced after setup.sh, by scripts that a person runs by hand and as root: it comes from the network, and takes
# up to 3 GB below the folder of temporary files, which are removed at the end.

fresh_root=""
# What stands before a command that is to run there, as root and with nothing of this machine's environment.
in_fresh_system=()

# make_fresh_system RELEASE LOG: its folder is then in fresh_root.
make_fresh_system() {
    [ "$(id -u)" -eq 0 ] || { printf 'This needs root, for debootstrap and chroot.\n' >&2; exit 1; }
    mkdir -p "$logs"
    install_packages fresh-system
    begin "fetching a fresh $1" "$2"
    fresh_root=$(mktemp -d)
    debootstrap --variant=minbase "$1" "$fresh_root" >"$stage_log" 2>&1 || { tail -n 5 "$stage_log" >&2; exit 1; }
    mount -t proc proc "$fresh_root/proc"
    in_fresh_system=(chroot "$fresh_root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin)
}

# megabytes_of_fresh_system [FOLDER]
megabytes_of_fresh_system() {
    du -sxm "$fresh_root/${1:-}" | cut -f 1
}

remove_fresh_system() {
    [ -n "$fresh_root" ] || return 0
    if mountpoint -q "$fresh_root/proc"; then umount "$fresh_root/proc"; fi
    rm -rf --one-file-system "$fresh_root"
}
