# ./dev test: builds and runs the tests, and says where the time went. Sourced by dev.
# shellcheck shell=bash

help_test() {
    cat <<END
usage: ./dev test [--arm64 | --sanitize] [--only <regex>]

Builds and runs the tests, as many at once as there are processors: all of them on this machine's processor, and on arm64,
under qemu, those of the library, the seam, the simulator and the loader. Prints a line for each program, all that failed,
ctest's summary, and where the time went. The programs run each of their cases in a process of its own.
  --arm64         on arm64 alone (build/arm64; docs/arm64.md)
  --sanitize      with the address and undefined-behaviour sanitizers (build/sanitize), on this machine's processor alone
  --only <regex>  only the cases whose names match, a line for each; without --arm64, on this machine's processor alone
END
}

# The package comes first: the library that is tested on arm64 is taken out of it.
build_for_arm64() {
    build release device_package
    "$root/cmake/arm64/make_sysroot" "$root/build/arm64-sysroot" || exit
    build arm64
}

command_test() {
    local preset='' only=()
    while (($#)); do
        case $1 in
            --arm64 | --sanitize)
                [[ -z $preset || $preset == "${1#--}" ]] || misuse "--arm64 and --sanitize exclude each other" test
                preset=${1#--} && shift
                ;;
            --only)
                [[ ${2:-} ]] || misuse "--only needs a regular expression" test
                only=(--tests-regex "$2") && shift 2
                ;;
            *) misuse "test takes no '$1'" test ;;
        esac
    done
    if ((${#only[@]})); then
        preset=${preset:-release}
        export HUECRAFT_EACH_CASE=1
    fi
    case $preset in
        arm64) build_for_arm64 ;;
        '') build release; build_for_arm64 ;;
        *) build "$preset" ;;
    esac
    cd "$root"
    if [[ $preset ]]; then
        run_tests "build/$preset" --preset "$preset" "${only[@]}"
    else
        # Both in one run, with one summary.
        mkdir -p build/tests
        printf 'subdirs("%s")\n' "$root/build/release" "$root/build/arm64" >build/tests/CTestTestfile.cmake
        run_tests build/tests --test-dir build/tests --output-on-failure --no-tests=error --timeout 120
    fi
}

# run_tests <ctest's folder> <its option>...: a line for each program, in full what failed, ctest's summary and a report.
run_tests() {
    local folder=$1 status=0
    shift
    ctest "$@" --parallel "$(nproc)" --no-label-summary | grep --line-buffered -vE '^ +Start +[0-9]+:' || status=$?
    report "$folder/Testing/Temporary/LastTest.log"
    return "$status"
}

# report <ctest's log>: what ran, what failed and where the time went, out of what the programs say of their cases.
report() {
    awk '
        function print_longest(title, lines, count,    sorted, i) {
            if (!count) return
            print title
            sorted = "sort -rn | head -n 8"
            for (i = 1; i <= count; i++) printf "  %8.1f s  %s\n", lines[i], substr(lines[i], index(lines[i], " ") + 1) | sorted
            close(sorted)
        }
        function end_entry() { if (entry && !passed && !named) failed[++failures] = entry }
        /^[0-9]+\/[0-9]+ Testing: / { end_entry(); entry = $3; entries++; passed = named = 0; next }
        /^Unable to find executable: / { failed[++failures] = $NF }
        /^FAILED: / { sub(/:$/, "", $2); failed[++failures] = $2; named = 1 }
        /^slow: / { slow_cases[++slow] = $2 " " $4 }
        /^cases run: / { run += $3; skipped += $7; slow_programs[++programs] = $NF " " entry }
        /^Test Pass(ed\.$| Reason:)/ { passed = 1 }
        END {
            end_entry()
            print_longest("\nSlowest programs, in processor time:", slow_programs, programs)
            print_longest("Slowest cases:", slow_cases, slow)
            if (failures) print "Failed:"
            for (i = 1; i <= failures; i++) print "  " failed[i]
            printf "cases run: %d in %d programs, and %d other checks; skipped: %d, failed: %d\n",
                run, programs, entries - programs, skipped, failures
        }' "$1"
}
