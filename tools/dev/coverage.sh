# ./dev coverage: what of the library and the settings pane the tests run. Sourced by dev.
# shellcheck shell=bash

help_coverage() {
    cat <<END
usage: ./dev coverage [--only <regex>]

Builds the coverage preset (build/coverage), in which the library and the settings pane count what runs, and runs the tests of
both builds for Linux. Prints, for each source that these load, how many lines ran and how many sides of branches were taken, and then
by file and line what was not: a line that no test reaches, and a branch of which one side was never taken. A branch of a template
counts as taken when one of its instances took it, and what two images are made of where it ran in one.
out/coverage/<image>/index.html shows the sources with the counts.
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
    rm -rf "$built/profiles" "$built/reached" "$root/out/coverage"
    # Every process adds to the counts of each image in it, at once. Of two images in a process only the first makes its folder.
    mkdir -p "$built/profiles"/{huecraft,huecraft_pane,pane_model}
    env -u LLVM_PROFILE_FILE "${tests[@]}" --output-on-failure --parallel "$(nproc)" --no-label-summary ||
        fail "the tests failed: what they reach says nothing"
    mkdir -p "$built/reached"
    read_counts "$built" huecraft lib/HuecraftiOS12.so
    read_counts "$built" huecraft_pane lib/HuecraftSettings.so
    read_counts "$built" pane_model bin/pane_model_tests
    find "$built/reached" -name "*.lcov" -exec cat {} + | added_up >"$built/reached/lines"
    [[ -s $built/reached/lines ]] || fail "the tests that ran load neither the library nor the settings pane"
    shares_that_ran <"$built/reached/lines"
    echo "Not reached:"
    awk '!$3 { print "  " $1 ":" $2 ": never run" } $3 && $5 < $4 { print "  " $1 ":" $2 ": a branch is never taken" }' \
        "$built/reached/lines"
}

# read_counts <build folder> <target> <image>: what the tests reached of an image, if they loaded it, and the pages.
read_counts() {
    local counts=$1/reached/$2.counts of=("$1/$3" --instr-profile "$1/reached/$2.counts" "$root/library" "$root/pane")
    local pages=$root/out/coverage/$2 profiles=("$1/profiles/$2"/*)
    [[ -e ${profiles[0]} ]] || return 0
    "llvm-profdata-$llvm" merge -o "$counts" "${profiles[@]}"
    "llvm-cov-$llvm" export --format=lcov --skip-functions "${of[@]}" >"$1/reached/$2.lcov"
    "llvm-cov-$llvm" show --format=html --show-branches=count --output-dir "$pages" "${of[@]}" >/dev/null
    echo "With the sources: $pages/index.html"
}

# added_up: of what was counted in any of the images, "<file> <line> <times> <sides of branches> <sides taken>".
added_up() {
    awk -F '[:,]' -v root="$root/" '
        $1 == "SF" { file = $2; sub(root, "", file) }
        $1 == "DA" { times[file " " $2] += $3 }
        $1 == "BRDA" { side[file " " $2, $3, $4] += $5 }
        END {
            for (one in side) { split(one, part, SUBSEP); sides[part[1]]++; taken[part[1]] += side[one] > 0 }
            for (line in times) printf "%s %.0f %d %d\n", line, times[line], sides[line], taken[line]
        }' | sort -k1,1 -k2,2n
}

# shares_that_ran: a table of the sources, and of the folders at the root as a whole.
shares_that_ran() {
    awk '
        function share(part, all) { return all ? sprintf("%.1f %%", 100 * part / all) : "" }
        function row(name) {
            printf "%-60s %6d %8s %9d %8s\n", name, lines[name], share(ran[name], lines[name]), sides[name],
                share(taken[name], sides[name])
        }
        function add(name) { lines[name]++; ran[name] += $3 > 0; sides[name] += $4; taken[name] += $5 }
        BEGIN { printf "%-60s %6s %8s %9s %8s\n", "", "lines", "ran", "branches", "taken" }
        $1 != file { if (file) row(file); file = $1 }
        { add(file); folder = file; sub("/.*", "", folder); add(folder) }
        END { row(file); if ("library" in lines) row("library"); if ("pane" in lines) row("pane") }'
}
