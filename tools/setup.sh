# shellcheck shell=bash
# What ./run, ./test and .ci/run share; sourced by bash from the root of the tree.
# Every stage has a name and reports how long it took; a script that fails says in one line in which
# stage it stopped.

set -Eeuo pipefail

logs=build/logs
stage="starting"
stage_log=""
stage_began=""

# begin NAME [LOG]: names what comes next, and the log to read when it fails.
begin() {
    report_duration
    stage=$1
    stage_log=${2:-}
    stage_began=$SECONDS
    printf '== %s\n' "${stage^}"
}

# duration SECONDS: as text.
duration() {
    if (($1 < 60)); then printf '%d s' "$1"; else printf '%d min %d s' $(($1 / 60)) $(($1 % 60)); fi
}

report_duration() {
    if [ -n "$stage_began" ]; then printf '   (%s)\n' "$(duration $((SECONDS - stage_began)))"; fi
}

# finish TEXT: prints it at the end of a script with several stages, and how long all of them took.
finish() {
    report_duration
    stage_began=""
    printf '== %s in %s\n' "${1^}" "$(duration "$SECONDS")"
}

report_where_it_stopped() {
    local status=$?
    report_duration
    if [ "$status" -ne 0 ]; then
        printf 'Stopped while %s%s.\n' "$stage" "${stage_log:+ (the whole output is in $stage_log)}" >&2
    fi
}
trap report_where_it_stopped EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# packages_of SECTION...: the packages of those sections of the list.
packages_of() {
    awk -v wanted=" $* " '
        /^\[.*\]$/ { inside = index(wanted, " " substr($0, 2, length($0) - 2) " "); next }
        inside && NF && !/^#/ { print $1 }' tools/packages.txt
}

# missing_packages SECTION...: those of them that this machine lacks.
missing_packages() {
    local package
    for package in $(packages_of "$@"); do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            printf '%s\n' "$package"
    done
}

# install_packages SECTION...: installs what is missing; touches nothing where nothing is.
install_packages() {
    begin "looking for missing packages"
    local missing
    missing=$(missing_packages "$@" | tr '\n' ' ')
    [ -n "$missing" ] || return 0

    mkdir -p "$logs"
    begin "installing packages: ${missing% }" "$logs/packages.log"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            # Alone on its line, ready to be copied.
            printf 'This needs root. Run this as root, then start again:\n  %s\n' \
                "apt-get update && apt-get install --no-install-recommends -y ${missing% }" >&2
            stage_log=""
            return 1
        fi
        as_root=(sudo)
    fi
    # A third-party list that can't be read must not stop packages that Debian itself has.
    "${as_root[@]}" apt-get update -o Acquire::Retries=3 >"$logs/packages.log" 2>&1 || true
    # shellcheck disable=SC2086
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --no-install-recommends -y \
        -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 $missing >>"$logs/packages.log" 2>&1 </dev/null ||
        { tail -n 5 "$logs/packages.log" >&2; return 1; }
}

# On a terminal Ninja's counter stays on one line; in a log every 25th step is enough.
show_progress() {
    local line steps=0 is_terminal=false
    if [ -t 1 ]; then is_terminal=true; fi
    while IFS= read -r line; do
        if [[ $line != \[*/*\]* ]]; then
            printf '%s\n' "$line"
        elif $is_terminal; then
            printf '\r\033[K%.*s' "$((${COLUMNS:-80} - 1))" "$line"
        elif ((steps++ % 25 == 0)); then
            printf '%s\n' "$line"
        fi
    done
    if $is_terminal; then printf '\r\033[K'; fi
}

# configure PRESET [OPTION...]
configure() {
    local preset=$1
    shift
    mkdir -p "$logs"
    begin "configuring the $preset build" "$logs/$preset-configure.log"
    # Where nobody looks at warnings they have to be errors.
    local warnings_are_errors=OFF
    if [ -n "${CI:-}" ]; then warnings_are_errors=ON; fi
    cmake --preset "$preset" -DKEELBRIGHT_WERROR=$warnings_are_errors "$@" >"$stage_log" 2>&1 ||
        { tail -n 20 "$stage_log" >&2; return 1; }
}

# build PRESET [TARGET...]
build() {
    local preset=$1
    shift
    begin "building ${*:-everything} in build/$preset" "$logs/$preset-build.log"
    cmake --build --preset "$preset" -j "$(nproc)" ${1:+--target "$@"} 2>&1 | tee "$stage_log" | show_progress
}

# run_tests PRESET [OPTION...]
run_tests() {
    local preset=$1
    shift
    begin "testing build/$preset" "$logs/$preset-tests.log"
    ctest --preset "$preset" --output-log "$stage_log" "$@"
}
