# Shared by the scripts that check the tree. Sourced, never run; comes with what the scripts that build share.
# shellcheck shell=bash
# shellcheck source=packaging/linux/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/../packaging/linux/lib.sh"
cd "$tree" || exit

work=$(mktemp -d "${TMPDIR:-/tmp}/zentilconf-ci.XXXXXX")
mkdir -m 700 "$work/home"
trap 'rm -rf "$work"' EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

passed=0
failed=()

# check TITLE COMMAND ...: runs the command in a shell of its own, which ends at
# the first error, and counts. Not within a condition: that would switch off -e.
check() {
    local title=$1 status started=$SECONDS
    shift
    printf '=== %s\n' "$title"
    set +e
    (set -e; "$@") </dev/null
    status=$?
    set -e
    if ((status == 0)); then
        passed=$((passed + 1))
        printf -- '--- passed: %s (%d s)\n' "$title" $((SECONDS - started))
    else
        failed+=("$title")
        printf -- '--- FAILED: %s (%d s)\n' "$title" $((SECONDS - started))
    fi
}

# Closes all checks: one line for each that failed, and one with their numbers. The
# status tells whether all passed.
report_checks() {
    local title
    for title in "${failed[@]}"; do
        printf 'Failed: %s\n' "$title"
    done
    printf 'Checks: %d passed, %d failed\n' "$passed" "${#failed[@]}"
    ((${#failed[@]} == 0))
}

# programs FOLDER: the programs that a build put there, one a line. There is one.
programs() {
    local found
    found=$(find "$1" -maxdepth 1 -type f -executable ! -name '*.*' | sort)
    [[ -n $found ]] || { echo "There is no program in \"$1\"." >&2; return 1; }
    printf '%s\n' "$found"
}

# check_fuzz SECONDS FOLDER: each target replays its corpus and then looks for news
# for so long. Inputs that reach something new are kept in the folder. The corpus
# of ReaderFuzzer is the folder "reader".
check_fuzz() {
    local seconds=$1 news=$2 targets target name corpus
    build fuzz tests/fuzz/all
    targets=$(programs build/fuzz/tests/fuzz)
    for target in $targets; do
        name=${target##*/}
        corpus=${name%Fuzzer}
        corpus=tests/fuzz/corpus/${corpus,}
        [[ -d $corpus ]] || { echo "There is no corpus \"$corpus\"."; return 1; }
        mkdir -p "$news/$name"
        "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
            -artifact_prefix="build/fuzz/$name-" "$news/$name" "$corpus" >"$work/fuzz.log" 2>&1 || {
            tail -n 60 "$work/fuzz.log"
            return 1
        }
        printf '%s: %s\n' "$name" "$(grep -E '^#[0-9]+[[:space:]]+DONE' "$work/fuzz.log")"
    done
}
