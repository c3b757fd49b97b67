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

# What a script has to undo at its end, however it comes; a script that has something redefines this.
clean_up() { :; }

report_where_it_stopped() {
    local status=$?
    clean_up
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

# What another system than Debian 12 has to have, where not all of it can be installed from here.
print_needs() {
    printf '%s\n' "What has to be there:" \
        "  g++ 12 or clang 19, CMake 3.25, Ninja, Qt 6.4 with Svg, DBus and LinguistTools, ICU 72," \
        "  OpenSSL 3, libcurl 7.87, SQLite 3.40, and the font Material Design Icons (where it is not found:" \
        "  cmake --preset run -DKEELBRIGHT_SYMBOL_FONT=.../materialdesignicons-webfont.ttf);" \
        "  for the tests also GoogleTest and Google Benchmark."
}

# Whether commands can be run as root; sets as_root to what has to stand before them.
as_root=()
may_be_root() {
    if [ "$(id -u)" -eq 0 ]; then return 0; fi
    command -v sudo >/dev/null || return 1
    as_root=(sudo)
    if sudo -n true 2>/dev/null; then return 0; fi
    [ -t 0 ] && sudo -v # asks for the password
}

# fetch_package_lists LOG: fails where one of them could not be fetched.
fetch_package_lists() {
    "${as_root[@]}" apt-get update -o Acquire::Retries=3 -o APT::Update::Error-Mode=any >"$1" 2>&1
}

# install_packages SECTION...: installs what is missing; touches nothing where nothing is.
install_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        printf 'This system has no apt-get, so nothing is installed from here.\n'
        print_needs
        return 0
    fi
    begin "looking for missing packages"
    local missing
    missing=$(missing_packages "$@" | tr '\n' ' ')
    [ -n "$missing" ] || return 0

    mkdir -p "$logs"
    begin "installing packages: ${missing% }" "$logs/packages.log"
    if ! may_be_root; then
        # Alone on its line, ready to be copied.
        printf 'This needs root. Run this as root, then start again:\n  %s\n' \
            "apt-get update && apt-get install --no-install-recommends -y ${missing% }" >&2
        stage_log=""
        return 1
    fi
    # A third-party list that can't be fetched must not stop packages that Debian itself has.
    local has_lists=true
    fetch_package_lists "$logs/package-lists.log" || has_lists=false
    # In English, in which the cause of a failure is looked for.
    # shellcheck disable=SC2086
    "${as_root[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive apt-get install --no-install-recommends -y \
        -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 $missing >"$stage_log" 2>&1 </dev/null || {
        tail -n 5 "$stage_log" >&2
        if ! $has_lists; then
            printf 'The lists of packages could not be fetched. Is there a network?\n' >&2
            grep -m 2 '^[EW]: ' "$logs/package-lists.log" >&2 || true
        elif grep -Eq '^E: (Unable to locate package|Package .* has no installation candidate)' "$stage_log"; then
            printf 'These lists of packages do not have them all.\n' >&2
            print_needs >&2
        fi
        return 1
    }
}

# preset_to_run: the preset for the program alone, unless the build folder, which both share, has tests.
preset_to_run() {
    if grep -qs '^KEELBRIGHT_TESTS:BOOL=ON' build/release/CMakeCache.txt &&
        [ -z "$(missing_packages test-build)" ]; then
        printf 'release\n'
    else
        printf 'run\n'
    fi
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
    begin "building ${*:-everything}" "$logs/$preset-build.log"
    # Where no locale is set Qt's tools ask for one of UTF-8; for the build alone, the tests do without.
    env LC_CTYPE="${LC_ALL:-${LC_CTYPE:-${LANG:-C.UTF-8}}}" \
        cmake --build --preset "$preset" -j "$(nproc)" ${1:+--target "$@"} 2>&1 | tee "$stage_log" | show_progress
}

# run_tests PRESET [OPTION...]
run_tests() {
    local preset=$1
    shift
    begin "testing build/$preset" "$logs/$preset-tests.log"
    ctest --preset "$preset" --output-log "$stage_log" "$@"
}
