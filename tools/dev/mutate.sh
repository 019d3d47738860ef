# ./dev mutate: changes that a test ought to notice. Sourced by dev.
# shellcheck shell=bash

help_mutate() {
    cat <<END
usage: ./dev mutate [<file or folder>[:<line>]...] [--sample <number>] [--seed <number>] [--list]

Builds the release preset and changes the sources, library/ unless some are named, one place at a time: comparisons are
flipped, conditions negated, constants shifted, literals changed, results emptied, calls and assignments removed. Each such
mutant is linked beside the build, and the suites that reach its line judge it until a case fails: those of the test programs
that tests/mutation/judges.txt lists, the nearest first, for library/, objc/, pane/, loader/ and simulator/. One that none of
them kills is printed with its place. What does not compile, or compiles to the same code, is counted apart, and
tests/mutation/explained.txt has those that change nothing, with the reason. The tree and the build stay as they are.
  <file>:<line>      only the mutants of one line
  --sample <number>  so many, taken at random
  --seed <number>    what decides the sample: 1 unless given
  --list             prints the mutants and tries none
The exit status is 0 when none survived, 1 when some did or when it was interrupted, 2 when something is wrong.
END
}

command_mutate() {
    local programs temporary=/tmp
    setup
    mapfile -t programs < <(grep -v '^#' "$root/tests/mutation/judges.txt" | tr ' ' '\n' | grep -x '[a-z0-9_]*_tests' | sort -u)
    configure release
    cmake --build "$root/build/release" --target huecraft_mutate huecraft "${programs[@]}" ||
        fail "building the preset 'release' failed"
    # The phones of the tests are many small files.
    [[ ! -w /dev/shm ]] || temporary=/dev/shm
    TMPDIR=${TMPDIR:-$temporary} "$root/build/release/bin/huecraft_mutate" --root "$root" \
        --build "$root/build/release" "$@"
}
