# Shared by the scripts that build, start and test the program. Sourced, never run.
# shellcheck shell=bash

tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)

# Standard output belongs to what a script is asked for; what it says on the way
# goes to standard error.
say() { printf '%s\n' "$*" >&2; }
die() { say "$*"; exit 1; }

# Qt and the tests want a UTF-8 locale; a bare machine has none set.
[[ -n ${LC_ALL-}${LC_CTYPE-}${LANG-} ]] || export LANG=C.UTF-8

# Processors for compiling and testing, unless the caller gives a number.
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}

# packages_of GROUP ...: the packages of these groups of packages.txt, one a line.
packages_of() {
    local line group=''
    while read -r line; do
        if [[ $line =~ ^'# '([a-z]+)$ ]]; then
            group=${BASH_REMATCH[1]}
        elif [[ -n $line && $line != '#'* && " $* " == *" $group "* ]]; then
            printf '%s\n' "$line"
        fi
    done <"$tree/packaging/linux/packages.txt"
}

# missing_packages PACKAGE ...: those that are not installed. One question to the
# package database, whatever their number.
missing_packages() {
    local package status
    local -A installed=()
    while read -r package status; do
        [[ $status == installed ]] && installed[$package]=1
    done < <(dpkg-query --show --showformat '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null)
    for package; do
        [[ -n ${installed[$package]-} ]] || printf '%s\n' "$package"
    done
}

# install_packages GROUP ...: installs what is missing, and does nothing otherwise.
install_packages() {
    local -a wanted missing as_root=()
    mapfile -t wanted < <(packages_of "$@" | sort -u)
    if ! type -P dpkg-query >/dev/null; then
        say 'This is not a Debian system: packages are not checked. What is needed: packaging/linux/packages.txt'
        return
    fi
    mapfile -t missing < <(missing_packages "${wanted[@]}")
    ((${#missing[@]})) || return 0

    say "Installing missing packages: ${missing[*]}"
    local by_hand="As root: apt-get install --no-install-recommends ${missing[*]}"
    if ((EUID != 0)); then
        type -P sudo >/dev/null || die "Packages cannot be installed without \"sudo\". $by_hand"
        sudo -v || die "\"sudo\" does not allow you to install packages. $by_hand"
        as_root=(sudo)
    fi
    local -a apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive
        apt-get -q -o DPkg::Lock::Timeout=300)
    "${apt[@]}" update >&2 || say 'The package lists could not be updated. Trying with those that are here.'
    # The directory server of the tests is started by them. The machine gets none of its own: one that is not set up is
    # not started either.
    if [[ " ${missing[*]} " == *' slapd '* ]]; then
        "${as_root[@]}" debconf-set-selections <<<'slapd slapd/no_configuration boolean true'
    fi
    "${apt[@]}" install --yes --no-install-recommends "${missing[@]}" >&2 </dev/null ||
        die "The packages could not be installed. $by_hand"
}

# Where ccache is installed, what one checkout has compiled need not be compiled
# again for another one of the same content.
if type -P ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    export CCACHE_BASEDIR=${CCACHE_BASEDIR-$tree} CCACHE_NOHASHDIR=1
fi

# build PRESET [TARGET ...]: configures build/PRESET when that is new, of another
# place or older than the presets, and builds. The build system looks after its
# own files, but not after the presets. One build at a time: a second one waits.
build() {
    local preset=$1 folder=$tree/build/$1 presets='' file lock
    shift
    mkdir -p "$folder"
    exec {lock}>"$folder/.lock"
    flock --nonblock "$lock" || { say "Waiting for another build of \"$preset\" ..."; flock "$lock"; }

    presets="# $tree"$'\n'
    for file in "$tree/CMakePresets.json" "$tree/CMakeUserPresets.json"; do
        [[ -f $file ]] && presets+=$(<"$file")
    done
    if [[ ! -f $folder/build.ninja || ! -f $folder/.configured || $(<"$folder/.configured") != "$presets" ]]; then
        rm -f "$folder/.configured"
        (cd "$tree" && cmake --preset "$preset" --fresh) >&2 || die 'The build could not be configured.'
        printf '%s\n' "$presets" >"$folder/.configured"
    fi
    (cd "$tree" && cmake --build --preset "$preset" ${1+--target "$@"}) >&2 || die 'The build failed.'
    exec {lock}>&-
}
