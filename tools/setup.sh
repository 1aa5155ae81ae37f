# Sourced by run and check from the root of the checkout. Gives setup (Debian packages), build and usage.

configure_options=()

say() { printf '\n== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    exit "${2:-1}"
}

# usage [SCRIPT]: the comment at the head of the script, which stands in the folder that the script has gone to
# unless it is named.
usage() { sed -n '2,/^set /s/^# \{0,1\}//p' "${1:-$(basename "$0")}"; }

# packages_of GROUP...: the packages of these groups of tools/packages.txt.
packages_of() {
    local group
    for group in "$@"; do
        sed -n "s/^$group: //p" tools/packages.txt
    done
}

missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || echo "$package"
    done
}

# setup GROUP...: installs what is missing of the groups; asks nothing of the network when all is there.
setup() {
    command -v dpkg-query >/dev/null ||
        die 'this is not a Debian system; install the counterparts of the packages in tools/packages.txt by hand'
    local packages missing sudo=()
    read -r -a packages <<<"$(packages_of "$@" | tr '\n' ' ')"
    read -r -a missing <<<"$(missing_packages "${packages[@]}" | tr '\n' ' ')"
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    say "Installing ${#missing[@]} Debian packages: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "as root, run: apt-get install ${missing[*]}"
        sudo=(sudo)
    fi
    local log=build/setup.log
    mkdir -p build
    "${sudo[@]}" apt-get update >"$log" 2>&1 || echo "apt-get update failed; going on with the lists at hand"
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        "${missing[@]}" >>"$log" 2>&1 ||
        { tail -n 20 "$log" >&2; die "apt-get could not install the packages; the whole log is in $log"; }
}

# show_errors LOG: the first errors of a build, or the end of a log that names none. awk and tail read the
# whole log, so that no command before them in a pipe is cut off.
show_errors() {
    awk '/error|Error|FAILED/ { left = 13 } left-- > 0 && shown < 60 { print; shown++ } END { exit shown == 0 }' "$1" ||
        tail -n 20 "$1"
}

# build PRESET [cmake --build arguments]: configures and builds; quiet unless it fails. The array
# configure_options, when set, goes to the configuration.
build() {
    local preset=$1 log=build/$1.log
    shift
    mkdir -p build
    if ! { cmake --preset "$preset" "${configure_options[@]}" &&
        cmake --build --preset "$preset" "$@"; } >"$log" 2>&1; then
        show_errors "$log" >&2
        die "the $preset build failed; the whole log is in $log"
    fi
}
