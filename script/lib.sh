# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# What the scripts of this folder share. Sourced, never run: it finds the project's root and goes there.

started_in=$PWD
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# Objects made in one clone serve in another: the cache must not see the folder that the clone lies in.
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$root} CCACHE_NOHASHDIR=${CCACHE_NOHASHDIR:-1}

# Progress goes to standard error, so that standard output holds results only.
say() { printf '==> %s\n' "$*" >&2; }
die() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }
usage_error() { printf '%s: %s (see --help)\n' "$(basename "$0")" "$*" >&2; exit 2; }

# The value of an option, or an explanation why it has none: value_of NAME "$#" "${2-}".
value_of() { [ "$2" -ge 2 ] || usage_error "$1 needs a value"; printf '%s' "$3"; }

# A path that a user gave means what it meant where the script was called.
from_caller() { case $1 in /*) printf '%s' "$1" ;; *) printf '%s/%s' "$started_in" "$1" ;; esac; }

# The comment at the head of the script is its help: what stands between the first line "#" and the end of the comment.
help_of() { awk 'NR > 2 && !/^#/ { exit } NR > 2 { sub(/^# ?/, ""); print }' "$1"; }

# Configures and builds one preset; further words name targets. Configuring is cmake's own business after the first
# time: it notices by itself when its lists have changed.
build() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "configuring build/$preset"
        cmake --preset "$preset" >&2
    fi
    say "building build/$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"} >&2
}

# Every file of the project that matches one of the given patterns: what git knows and what is new and not ignored.
# A tree without git (an unpacked archive, or a clone that belongs to someone else) is searched instead.
project_files() {
    if git ls-files >/dev/null 2>&1; then
        git ls-files --cached --others --exclude-standard -- "$@" | sort -u | while IFS= read -r file; do
            if [ -f "$file" ]; then printf '%s\n' "$file"; fi
        done
    else
        local pattern tests=()
        for pattern in "$@"; do tests+=(-o -path "./$pattern"); done
        find . \( -path ./build -o -path ./.git -o -path ./.cache \) -prune -o -type f \( "${tests[@]:1}" \) -print |
            sed 's|^\./||' | sort -u
    fi
}
