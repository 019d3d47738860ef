# ./dev fuzz: bytes that nobody wrote, through all that reads bytes. Sourced by dev.
# shellcheck shell=bash

help_fuzz() {
    cat <<END
usage: ./dev fuzz [<target>...] [--minutes <number>] [--minimise]
       ./dev fuzz --list

Builds the fuzz preset (build/fuzz: libFuzzer, with the address and undefined-behaviour sanitizers) and runs the targets one
after another, all of them unless some are named. A target begins with its seeds and the corpus of the tree (tests/fuzz), and
keeps what it comes across in build/fuzz/corpora. It ends at the first thing that it finds, says what, and where the input lies;
the exit status is then 1. tests/fuzz/<target>.cpp says what a target expects, and subcommands.cpp what those of that name do.
  --minutes <number>  how long each target runs: 1 unless given
  --minimise          runs nothing new; puts the fewest inputs that reach every branch that was reached into tests/fuzz/corpus
  --list              prints the targets
A short run of each target, the same every time and not sanitized, is a part of ./dev test.
END
}

fuzz_targets() {
    sed -nE 's/^add_fuzz_target\(([a-z_]+) .*/\1/p' "$root/tests/fuzz/CMakeLists.txt"
}

command_fuzz() {
    local minutes=1 minimise='' wanted=() targets target status=0
    mapfile -t targets < <(fuzz_targets)
    while (($#)); do
        case $1 in
            --list)
                (($# == 1 && ${#wanted[@]} == 0)) || misuse "--list stands alone" fuzz
                printf '%s\n' "${targets[@]}"
                return
                ;;
            --minutes)
                [[ ${2:-} =~ ^[1-9][0-9]{0,4}$ ]] || misuse "--minutes needs a whole number from 1, found '${2:-}'" fuzz
                minutes=$2 && shift 2
                ;;
            --minimise) minimise=yes && shift ;;
            -*) misuse "fuzz takes no '$1'" fuzz ;;
            *)
                [[ " ${targets[*]} " == *" $1 "* ]] || misuse "no target '$1': expected one of ${targets[*]}" fuzz
                wanted+=("$1") && shift
                ;;
        esac
    done
    ((${#wanted[@]})) || wanted=("${targets[@]}")
    setup
    configure fuzz
    cmake --build "$root/build/fuzz" --target "${wanted[@]/#/fuzz_}" || fail "building the preset 'fuzz' failed"
    for target in "${wanted[@]}"; do
        if [[ $minimise ]]; then minimise_corpus "$target"; else run_target "$target" "$minutes" || status=1; fi
    done
    return "$status"
}

# fuzz <target> <option of libFuzzer or folder>...: runs the target's program, with a folder for its phones.
fuzz() {
    local name=$1 scratch status=0
    shift
    scratch=$(mktemp -d -p "$([[ -w /dev/shm ]] && echo /dev/shm || echo /tmp)" huecraft-fuzz-XXXXXX)
    # What the runtime keeps to its end is not a leak, and much of it is kept; detect_leaks would look for it time and again.
    # Freed memory is watched for the next 2 MB of it, and frames of functions that returned not at all: an execution takes
    # half the time. ./dev test --sanitize watches both for longer.
    local options=detect_leaks=0:detect_odr_violation=0:detect_stack_use_after_return=0:malloc_context_size=2
    options+=:quarantine_size_mb=2:thread_local_quarantine_size_kb=64:allocator_release_to_os_interval_ms=-1
    TMPDIR=$scratch ASAN_OPTIONS=$options UBSAN_OPTIONS=print_stacktrace=1 \
        "$root/build/fuzz/bin/fuzz_$name" -timeout=60 -rss_limit_mb=4096 -detect_leaks=0 "$@" || status=$?
    rm -rf "$scratch"
    return "$status"
}

# The corpus that grows, with the seeds and the tree's beside it.
unpacked_corpus() {
    local folder=$root/build/fuzz/corpora/$1 kept=$root/build/fuzz/corpora/$1.kept texts=() text
    rm -rf "$kept"
    mkdir -p "$folder" "$kept"
    for text in "$root"/tests/fuzz/{seeds,corpus}/"$1.txt"; do [[ ! -e $text ]] || texts+=("$text"); done
    ((${#texts[@]} == 0)) || "$root/build/fuzz/bin/fuzz_corpus" unpack "$kept" "${texts[@]}" ||
        fail "the corpus of '$1' cannot be read"
    [[ ! -e $root/build/fuzz/tests/fuzz/$1.seeds ]] || cp "$root/build/fuzz/tests/fuzz/$1.seeds/"*.dylib "$kept"
}

run_target() {
    local folder=$root/build/fuzz/corpora/$1 found=$root/out/fuzz/$1 log=$root/out/fuzz/$1/log options=() status=0
    unpacked_corpus "$1"
    mkdir -p "$found"
    [[ ! -e $root/tests/fuzz/dictionaries/$1.dict ]] || options+=("-dict=$root/tests/fuzz/dictionaries/$1.dict")
    fuzz "$1" "${options[@]}" -max_len="$(largest_input "$1")" -max_total_time="$(($2 * 60))" -print_final_stats=1 \
        -artifact_prefix="$found/" "$folder" "$folder.kept" >"$log" 2>&1 || status=$?
    awk -v target="$1" '
        / cov: / { for (i = 1; i < NF; i++) if ($i == "cov:") reached = $(i + 1) }
        /^stat::number_of_executed_units:/ { executions = $2 }
        END { printf "%s: %d executions, %d branches reached\n", target, executions, reached }' "$log"
    ((status)) || return 0
    tail -n 40 "$log"
    echo "$1: found something; the input is in $found, and what was said in $log"
    return 1
}

largest_input() {
    local largest
    largest=$(sed -nE "s/^add_fuzz_target\\($1 .*LARGEST ([0-9]+).*/\\1/p" "$root/tests/fuzz/CMakeLists.txt")
    echo "${largest:-4096}"
}

# Inputs of a few hundred bytes are kept; larger ones say what smaller ones say. Of two that reach the same branches one is
# enough: how often they did does not count, or the tests would read thousands.
minimise_corpus() {
    local folder=$root/build/fuzz/corpora/$1 fewest=$root/build/fuzz/corpora/$1.fewest
    unpacked_corpus "$1"
    rm -rf "$fewest"
    mkdir -p "$fewest"
    fuzz "$1" -set_cover_merge=1 -use_counters=0 "$fewest" "$folder.kept" "$folder" >"$root/build/fuzz/corpora/$1.log" 2>&1 ||
        fail "merging failed; see build/fuzz/corpora/$1.log"
    "$root/build/fuzz/bin/fuzz_corpus" pack "$fewest" 700 >"$fewest.txt"
    [[ ! -s $fewest.txt ]] || cp "$fewest.txt" "$root/tests/fuzz/corpus/$1.txt"
    echo "$1: $(wc -l <"$fewest.txt") inputs kept of $(find "$folder" -type f | wc -l)"
}
