# ./dev test: builds and runs the tests, and says where the time went. Sourced by dev.
# shellcheck shell=bash

help_test() {
    cat <<END
usage: ./dev test [--arm64 | --sanitize | --debug | --threads | --memcheck] [--faults] [--only <regex> | --changed [<commit>]]

Builds and runs the tests, as many at once as there are processors: all of them on this machine's processor, and on arm64,
under qemu, those of the library, the seam, the simulator and the loader. Prints a line for each program, all that failed,
ctest's summary, and where the time went. The programs run each of their cases in a process of its own.
  --arm64               on arm64 alone (build/arm64; docs/arm64.md)
  --sanitize            with the address and undefined-behaviour sanitizers (build/sanitize), on this machine's processor alone
  --debug               with the debug preset (build/debug), on this machine's processor alone: no optimisation, the checks of the
                        standard library, and each send held against the types of the method that it finds
  --threads             the library asked from sixteen threads, under the thread sanitizer, and nothing else
  --memcheck            the library's tests under valgrind's memcheck: what is read before it is written, and beyond what
                        was allocated, in every library that takes part; with --only those cases alone. Also installs:
                        ${memcheck_packages[*]}
  --faults              only the cases in which system calls fail, with every fault at every call of the command (half an hour)
  --only <regex>        only the cases whose names match, a line for each
  --changed [<commit>]  only the programs that are built of what differs from the commit (HEAD unless given) or is not
                        tracked; all of them where the build does not know what a file is for
With --only or --changed and without --arm64, on this machine's processor alone.
END
}

# The package comes first: the library that is tested on arm64 is taken out of it.
build_for_arm64() {
    build release device_package
    build release describe_package
    build release arm64e_package
    build release pane_package
    build release arm64e_pane_package
    "$root/cmake/arm64/make_sysroot" "$root/build/arm64-sysroot" || exit
    build arm64
}

command_test() {
    local preset='' only=() changed='' selected=()
    while (($#)); do
        case $1 in
            --arm64 | --sanitize | --debug)
                [[ -z $preset || $preset == "${1#--}" ]] || misuse "--$preset and $1 exclude each other" test
                preset=${1#--} && shift
                ;;
            --threads)
                (($# == 1)) || misuse "--threads stands alone" test
                test_threads
                return
                ;;
            --memcheck)
                shift
                test_with_memcheck "$@"
                return
                ;;
            --faults)
                export HUECRAFT_FAULTS=all
                only=(--tests-regex 'Faults\.|Saving\.') && shift
                ;;
            --only)
                [[ ${2:-} ]] || misuse "--only needs a regular expression" test
                only=(--tests-regex "$2") && shift 2
                ;;
            --changed)
                changed=HEAD && shift
                [[ ${1:---} == --* ]] || { changed=$1 && shift; }
                git -C "$root" rev-parse --quiet --verify "$changed^{commit}" >/dev/null ||
                    fail "there is no commit '$changed' to compare with" 2
                ;;
            *) misuse "test takes no '$1'" test ;;
        esac
    done
    [[ -z $changed || ${#only[@]} == 0 ]] || misuse "--only and --changed exclude each other" test
    if ((${#only[@]})); then
        preset=${preset:-release}
        export HUECRAFT_EACH_CASE=1
    fi
    if [[ $changed ]]; then preset=${preset:-release}; fi
    case $preset in
        arm64) build_for_arm64 ;;
        '') build release; build_for_arm64 ;;
        *) build "$preset" ;;
    esac
    cd "$root"
    if [[ $preset ]]; then
        if [[ $changed ]]; then
            mapfile -t selected < <(what_a_change_can_break "$changed" "build/$preset")
            if [[ ${selected[0]:-} == nothing ]]; then
                echo "Nothing differs from $changed: no test was run."
                return
            fi
        fi
        run_tests "build/$preset" --preset "$preset" "${only[@]}" "${selected[@]}"
    else
        # Both in one run, with one summary.
        mkdir -p build/tests
        printf 'subdirs("%s")\n' "$root/build/release" "$root/build/arm64" >build/tests/CTestTestfile.cmake
        run_tests build/tests --test-dir build/tests --output-on-failure --no-tests=error --timeout 120
    fi
}

# The library and its test are compiled for it. What they rest on is that a race which is there is seen.
test_threads() {
    build release race_tests
    local program=$root/build/release/bin/race_tests log=$root/build/known-race.log
    export HUECRAFT_LIBRARY=$root/build/release/lib/libraced_library.so
    export TSAN_OPTIONS="exitcode=66:detect_deadlocks=0:suppressions='$root/tests/races.supp'"
    "$program" --gtest_filter='-KnownRace.*' || fail "the threads' tests failed"
    if "$program" --gtest_filter='KnownRace.*' >"$log" 2>&1 || ! grep -q 'data race .*threads_test\.cpp' "$log"; then
        fail "a race that is known was not seen: $log"
    fi
    echo "A race that is known is seen, and there is none in the library."
}

# Each case's process is checked; what memcheck finds is its exit status, and stands in its log. Valgrind does not know the
# form of debug information that the compiler writes: copies without it are run, and functions are named all the same.
test_with_memcheck() {
    local filter='*' program copies=$root/build/memcheck status=0 programs=(model hook settings view)
    case ${1:-} in
        '') ;;
        --only)
            [[ ${2:-} ]] || misuse "--only needs names as gtest's filter takes them" test
            filter=$2
            ;;
        *) misuse "--memcheck takes no '$1'" test ;;
    esac
    packages+=("${memcheck_packages[@]}")
    for program in "${programs[@]}"; do build release "${program}_tests"; done
    rm -rf "$copies"
    mkdir -p "$copies"/{bin,lib,logs}
    for program in lib/libhuecraft_simulator.so lib/HuecraftiOS12.so "${programs[@]/#/bin/}"; do
        [[ $program == lib/* ]] || program+=_tests
        "llvm-strip-$llvm" --strip-debug "$root/build/release/$program" -o "$copies/$program" || fail "there is no copy of $program"
    done
    for program in "${programs[@]}"; do
        # Not all of the programs have a case that was named.
        [[ $("$copies/bin/${program}_tests" --gtest_list_tests --gtest_filter="$filter") == *$'\n '* ]] || continue
        # A case takes sixty times as long as without it.
        HUECRAFT_LIBRARY=$copies/lib/HuecraftiOS12.so LD_LIBRARY_PATH=$copies/lib valgrind --quiet --error-exitcode=66 \
            --trace-children=yes --suppressions="$root/tests/memcheck.supp" --log-file="$copies/logs/$program.%p" \
            "$copies/bin/${program}_tests" --prefix="memcheck." --limit=6000 --patience=60000 --gtest_filter="$filter" || status=1
    done
    # Besides, valgrind says of a system call that it does not know it; the simulator does without.
    if grep --quiet --no-messages '^==' "$copies"/logs/*; then
        grep --no-filename '^==' "$copies"/logs/* | head -n 60
        echo "memcheck found something; its words are in $copies/logs"
        status=1
    fi
    return "$status"
}

# --- endure --------------------------------------------------------------------------------------------

help_endure() {
    cat <<END
usage: ./dev endure [--count <number>]

Does the same over and over in one process, and measures what the process holds: so many appearances of the keyboard in
changing themes (1000000 unless given), a tenth as many sittings with the colour picker, and a hundredth as many openings of
the settings pane. Tables and plots go into out/endurance. Fails when a repetition keeps memory or a file open.
END
}

command_endure() {
    local count=1000000
    while (($#)); do
        case $1 in
            --count)
                [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || misuse "--count needs a number" endure
                count=$2 && shift 2
                ;;
            *) misuse "endure takes no '$1'" endure ;;
        esac
    done
    build release endurance_tests
    export HUECRAFT_ENDURE=$count HUECRAFT_ENDURE_FIGURES=$root/out/endurance
    export HUECRAFT_LIBRARY=$root/build/release/lib/HuecraftiOS12.so HUECRAFT_PANE=$root/build/release/lib/HuecraftSettings.so
    local each status=0
    # Freed blocks that the C library keeps for the thread would count as held.
    export GLIBC_TUNABLES=glibc.malloc.tcache_count=0
    # A process has one phone.
    for each in AKeyboard APicker ThePane; do
        "$root/build/release/bin/endurance_tests" --here --gtest_brief=1 --gtest_filter="*.$each*" || status=1
    done
    echo "Figures: $root/out/endurance"
    return "$status"
}

# what_a_change_can_break <commit> <build folder>: the options that make ctest run it, a line each; "nothing" if nothing differs.
# The build knows what each program is made of, and what it needs besides. What it knows nothing of may break anything: a
# picture, a script, a file of CMake's. The checks that are not programs run unless tests alone differ.
what_a_change_can_break() {
    local build=$2 program file nodes programs affected='' spared='' known=$'\n' checks=''
    local -a changed
    mapfile -t changed < <(git diff --name-only --no-renames "$1" && git ls-files --others --exclude-standard)
    ((${#changed[@]})) || { echo nothing && return; }
    nodes=$(printf '%s\n' "${changed[@]}" | built_of "$build")
    programs=$(ctest --test-dir "$build" --show-only | sed -nE 's/^ +Test +#[0-9]+: (.*\.)?([a-z0-9_]+_tests)$/\2/p' | sort -u)
    for program in $programs; do
        if file=$(ninja -C "$build" -t inputs "bin/$program" | grep -xF "$nodes"); then
            affected+="|$program"
            known+=$file$'\n'
        else
            spared+="|$program"
        fi
    done
    for file in "${changed[@]}"; do
        [[ $file == tests/* ]] || checks=yes
        [[ $file == *.md || $known == *$'\n'"$root/$file"$'\n'* || $(built_of "$build" <<<"$file") == *$'\n'* ]] || return 0
    done
    if [[ $checks ]]; then
        [[ -z $spared ]] || printf '%s\n' --exclude-regex "^([a-z0-9]+\\.)*(${spared#|})\$"
    else
        printf '%s\n' --tests-regex "^([a-z0-9]+\\.)*(${affected#|})\$"
    fi
}

# built_of <build folder>: the files named in the input, as the build calls them, and the objects that include one of them.
built_of() {
    awk -v root="$root/" '
        NR == FNR { changed[$0]; print root $0; next }
        /^[^ ].*: #deps/ { object = substr($0, 1, index($0, ": #deps") - 1); next }
        /^    / {
            name = substr($0, 5)
            sub(/^(\.\.\/)+/, "", name)
            if (index(name, root) == 1) name = substr(name, length(root) + 1)
            if (name in changed && !(object in seen)) { seen[object]; print object }
        }' - <(ninja -C "$1" -t deps)
}

# run_tests <ctest's folder> <its option>...: a line for each program, in full what failed, ctest's summary and a report.
run_tests() {
    local folder=$1 status=0
    shift
    ctest "$@" --parallel "$(nproc)" --no-label-summary | grep --line-buffered -vE '^ +Start +[0-9]+:' || status=$?
    report "$folder/Testing/Temporary/LastTest.log" || status=1
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
            if (!entries && !failures) { print "there is no test in " FILENAME; exit 1 }
            print_longest("\nSlowest programs, in processor time:", slow_programs, programs)
            print_longest("Slowest cases:", slow_cases, slow)
            if (failures) print "Failed:"
            for (i = 1; i <= failures; i++) print "  " failed[i]
            printf "cases run: %d in %d programs, and %d other checks; skipped: %d, failed: %d\n",
                run, programs, entries - programs, skipped, failures
        }' "$1"
}

# --- debug ---------------------------------------------------------------------------------------------

help_debug() {
    cat <<END
usage: ./dev debug <test>

Builds the debug preset and opens gdb on one case, the one whose name matches the regular expression; when several do, it
lists them. In gdb, "run" runs it. Also installs: ${debug_packages[*]}
END
}

command_debug() {
    local registered names words variables
    (($# == 1)) && [[ $1 && $1 != -* ]] || misuse "debug takes the name of one test" debug
    packages+=("${debug_packages[@]}")
    build debug
    registered=$(HUECRAFT_EACH_CASE=1 ctest --test-dir "$root/build/debug" --show-only --verbose --tests-regex "$1")
    mapfile -t names < <(sed -nE 's/^ +Test +#[0-9]+: //p' <<<"$registered")
    ((${#names[@]})) || fail "no test matches '$1'"
    if ((${#names[@]} > 1)); then
        printf '  %s\n' "${names[@]:0:40}" >&2
        fail "${#names[@]} tests match '$1', expected was one"
    fi
    read -ra words < <(sed -nE 's/^[0-9]+: Test command: //p' <<<"$registered" | tr -d '"')
    [[ ${words[*]} == *--gtest_filter=* ]] || fail "${names[0]} is not a case of a test program: ${words[*]}"
    mapfile -t variables < <(sed -nE 's/^[0-9]+:  ([A-Z_]+=.*)/\1/p' <<<"$registered")
    exec env "${variables[@]}" gdb --args "${words[@]}" --here
}
