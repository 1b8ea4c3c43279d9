# Shared by the scripts that make the Windows program. Sourced, never run.
# shellcheck shell=bash
source "$(dirname "${BASH_SOURCE[0]}")/../linux/lib.sh"

# The packages are a list of their own; see install_packages.
packages_of() { sed -e 's/[[:space:]]*#.*//' -e '/^$/d' "$tree/packaging/windows/packages.txt"; }

cache=${XDG_CACHE_HOME:-$HOME/.cache}/zentilconf
toolchain=$tree/cmake/toolchains/mingw-w64.cmake

# The version of an installed package.
package_version() { dpkg-query -W -f '${Version}' "$1" 2>/dev/null || die "The package \"$1\" is not installed."; }

# upstream_version VERSION: a package's version without what the distribution adds.
upstream_version() { local v=${1#*:}; v=${v%-*}; printf '%s' "${v%%+*}"; }

# A digest of everything that decides what a build gives: the compiler, the
# toolchain file and the words given here.
build_key() {
    { x86_64-w64-mingw32-g++-posix -dumpfullversion
      grep -v '^#' "$toolchain"
      printf '%s\n' "$@"
    } | sha256sum | cut -c 1-12
}

# keep_build FOLDER FUNCTION: makes FOLDER by calling FUNCTION SCRATCH PREFIX,
# once. PREFIX stands beside FOLDER and takes its place only when FUNCTION has
# come to its end, so that FOLDER is whole or missing, however the build ends.
# SCRATCH stays after a build that failed, and the next one goes on from there.
keep_build() {
    local folder=$1 build=$2 lock
    [[ -d $folder ]] && return
    mkdir -p "$cache"
    exec {lock}>"$folder.lock"
    flock --nonblock "$lock" || { say 'Waiting for another build ...'; flock "$lock"; }
    if [[ ! -d $folder ]]; then
        rm -rf "$folder.new"
        mkdir -p "$folder.build" "$folder.new"
        "$build" "$folder.build" "$folder.new"
        mv -T "$folder.new" "$folder"
        rm -rf "$folder.build"
    fi
    rm -f "$folder.lock"
    exec {lock}>&-
}

# quietly LOG COMMAND ...: shows what a long command printed only when it failed:
# its errors, or without any its end.
quietly() {
    local log=$1
    shift
    "$@" >"$log" 2>&1 </dev/null && return
    grep -E -A 3 '(^|[^-a-z])(error|FAILED|E):' "$log" | head -n 60 >&2 || tail -n 40 "$log" >&2
    die "\"$1\" failed. All of what it said: $log"
}

# project_version BUILD-FOLDER: the version of what is built there.
project_version() { sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$1/CMakeCache.txt"; }
