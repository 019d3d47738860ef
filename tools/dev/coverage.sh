# ./dev coverage: what of the library and the settings pane the tests run. Sourced by dev.
# shellcheck shell=bash

help_coverage() {
    cat <<END
usage: ./dev coverage [--only <regex>]

Builds the coverage preset (build/coverage), in which the library and the settings pane count what runs, and runs the tests of
both builds for Linux. Prints, for each source, how many functions, lines and branches ran, and then by file and line what did not:
a line that no test reaches, and a branch of which one side was never taken. A branch of a template counts as
taken when one of its instances took it, and a send in an interface that both images declare where one of them
uses it. out/coverage/index.html shows the sources with the counts.
  --only <regex>  only the test programs whose names match
END
}

command_coverage() {
    local only=() programs built=$root/build/coverage
    while (($#)); do
        case $1 in
            --only)
                [[ ${2:-} ]] || misuse "--only needs a regular expression" coverage
                only=(--tests-regex "$2") && shift 2
                ;;
            *) misuse "coverage takes no '$1'" coverage ;;
        esac
    done
    setup
    configure coverage
    local tests=(ctest --test-dir "$built" --label-regex '^elf$' "${only[@]}")
    mapfile -t programs < <("${tests[@]}" --show-only | sed -nE 's/^ +Test +#[0-9]+: (.*\.)?([a-z0-9_]+_tests)$/\2/p' | sort -u)
    ((${#programs[@]})) || fail "no test program of the Linux builds matches"
    cmake --build "$built" --target "${programs[@]}" || fail "building the preset 'coverage' failed"
    rm -rf "$built/profiles"
    # Every process adds to the counts of the image, at once.
    LLVM_PROFILE_FILE=$built/profiles/%c%m "${tests[@]}" --output-on-failure --parallel "$(nproc)" --no-label-summary ||
        fail "the tests failed: what they reach says nothing"
    report_coverage "$built"
}

# report_coverage <build folder>: the table, what was not reached, and the pages.
report_coverage() {
    local built=$1 counts=$1/counts pages=$root/out/coverage
    local of=("$built/lib/HuecraftiOS12.so" --object "$built/lib/HuecraftSettings.so")
    [[ ! -e $built/bin/pane_model_tests ]] || of+=(--object "$built/bin/pane_model_tests")
    of+=(--instr-profile "$counts" "$root/library" "$root/pane")
    "llvm-profdata-$llvm" merge -sparse -o "$counts" "$built"/profiles/*
    "llvm-cov-$llvm" report --show-region-summary=false "${of[@]}"
    echo "Not reached:"
    "llvm-cov-$llvm" export --format=lcov --skip-functions "${of[@]}" | not_reached
    "llvm-cov-$llvm" show --format=html --show-branches=count --output-dir "$pages" "${of[@]}" >/dev/null
    echo "With the sources: $pages/index.html"
}

# not_reached: of what was counted, "<file>:<line>: never run", and of lines that ran "<file>:<line>: a branch is never taken".
not_reached() {
    awk -F '[:,]' -v root="$root/" '
        $1 == "SF" { file = $2; sub(root, "", file); next }
        $1 == "DA" && $3 == 0 { never[file ":" $2]; order[++count] = file ":" $2 }
        $1 == "BRDA" { side = file ":" $2 "," $3 "," $4; if (!(side in taken)) sides[++number] = side; taken[side] += $5 }
        END {
            for (i = 1; i <= count; i++) print "  " order[i] ": never run"
            for (i = 1; i <= number; i++) {
                split(sides[i], part, ",")
                if (taken[sides[i]] == 0 && !(part[1] in never) && !(part[1] in said)) {
                    said[part[1]]
                    print "  " part[1] ": a branch is never taken"
                }
            }
        }' | sort -t: -k1,1 -k2,2n
}
