# clang-tidy over the sources of all but tools and tests, for ./dev lint. Sourced by lint.sh.
# shellcheck shell=bash

# A source costs seconds on its own, nearly all of them for what it includes. So sources that are compiled with the same words
# are read as one, twenty at a time. Where two of them have a name in common and do not stand in one translation unit, the
# batch is halved until they do.
tidy_batch=20
# Tests are not read, nor tools: what these include takes minutes.
tidy_towers='objc|platform|library|readability|compatibility|pane|describe|device|loader|simulator'

# What clang-tidy found nothing in is not read again: build/tidy/sound has an empty file named after a digest of all that
# decides it, which is the checks, their version, the words, and the source with whatever the build says that it includes.
check_tidy() {
    local build=$root/build/release tidy=$root/build/tidy
    rm -rf "$tidy/sources" "$tidy/batches"
    mkdir -p "$tidy/sources" "$tidy/batches" "$tidy/sound"
    tidy_sources "$build" >"$tidy/list"
    tidy_includes "$build" "$tidy"
    tidy_batches "$build" "$tidy"
    find "$tidy/batches" -name '*.list' -print0 | sort -z |
        LLVM=$llvm xargs -0 -r -n 1 -P "$(nproc)" bash -c "$(declare -f tidy_read); tidy_read \"\$1\"" tidy
}

# tidy_sources <build>: a line for each source: it, its object, and the words that compile it without either, by tabs.
tidy_sources() {
    awk -v root="$root/" -v towers="^($tidy_towers)/" '
        /^  "command": / { words = substr($0, 15); sub(/",$/, "", words) }
        /^  "file": / {
            source = substr($0, 12); sub(/",?$/, "", source)
            if (index(source, root) != 1 || substr(source, length(root) + 1) !~ towers || source !~ /\.cpp$/ || source in seen) next
            seen[source] = 1
            match(words, / -o [^ ]+ -c /)
            object = substr(words, RSTART + 4, RLENGTH - 8)
            words = substr(words, 1, RSTART - 1)
            print substr(source, length(root) + 1) "\t" object "\t" words
        }' "$1/compile_commands.json"
}

# tidy_includes <build> <tidy>: sources/<source> gets all that decides what is found in it, if the build knows that.
tidy_includes() {
    local build=$1 tidy=$2
    ninja -C "$build" -t deps | awk '/: #deps/ { sub(/:$/, "", $1); object = $1 } /^    / { print object "\t" substr($0, 5) }' >"$tidy/deps"
    (cd "$build" && cut -f 2 "$tidy/deps" | sort -u | tr '\n' '\0' | xargs -0 -r sha256sum 2>/dev/null) >"$tidy/digests"
    awk -F '\t' -v tidy="$tidy" -v rules="$(cat "$root/.clang-tidy" "$root/.llvm-version" "$root/tools/dev/tidy.sh" | sha256sum)" '
        FILENAME ~ /digests$/ { digest[substr($0, 67)] = substr($0, 1, 64); next }
        FILENAME ~ /list$/ { of[$2] = $1; words[$2] = $3; next }
        $1 in of {
            file = of[$1]; gsub("/", ":", file); file = tidy "/sources/" file
            if (file != last) { close(last); print rules, words[$1] >file }
            print digest[$2], $2 >file
            last = file
        }' "$tidy/digests" "$tidy/list" "$tidy/deps"
}

# tidy_batches <build> <tidy>: batches/<number>.list has the sources of a batch, each with the file that says it is sound, and
# batches/<number>.words what compiles them, as JSON spells it.
tidy_batches() {
    local build=$1 tidy=$2
    (cd "$tidy/sources" && find . -type f -printf '%P\0' | xargs -0 -r sha256sum) |
        awk '{ print substr($0, 67) "\t" substr($0, 1, 64) }' >"$tidy/stamps"
    find "$tidy/sound" -type f -printf '%f\n' >"$tidy/known"
    sort -t $'\t' -k 3,3 -k 1,1 "$tidy/list" | awk -F '\t' -v tidy="$tidy" -v size="$tidy_batch" '
        FILENAME ~ /known$/ { known[$1] = 1; next }
        FILENAME ~ /stamps$/ { stamp[$1] = $2; next }
        {
            name = $1; gsub("/", ":", name)
            if (stamp[name] in known) next
            if ($3 != words || ++held > size) {
                words = $3; held = 1
                batch = tidy "/batches/" sprintf("%04d", ++number)
                print words >(batch ".words"); close(batch ".words")
            }
            print $1 "\t" (name in stamp ? tidy "/sound/" stamp[name] : "") >(batch ".list")
        }' "$tidy/known" "$tidy/stamps" -
}

# tidy_read <list>: prints what clang-tidy finds in the sources of a batch.
tidy_read() {
    local list=$1 batch=${1%.list} root=$PWD count half found status=0
    mkdir -p "$batch"
    # To include a source is what a batch is for.
    cut -f 1 "$list" | sed "s|.*|#include \"$root/&\"  // NOLINT|" >"$batch/batch.cpp"
    printf '[{"directory": "%s", "file": "%s", "command": "%s -c %s"}]\n' "$root/build/release" "$batch/batch.cpp" \
        "$(<"$batch.words")" "$batch/batch.cpp" >"$batch/compile_commands.json"
    count=$(wc -l <"$list")
    if ((count > 1)) && ! (cd build/release && eval "$(sed 's/\\\(.\)/\1/g' "$batch.words")" -fsyntax-only -w "$batch/batch.cpp") 2>/dev/null; then
        head -n $((count / 2)) "$list" >"$batch-0.list"
        tail -n +$((count / 2 + 1)) "$list" >"$batch-1.list"
        for half in 0 1; do
            cp "$batch.words" "$batch-$half.words"
            tidy_read "$batch-$half.list"
        done
        return
    fi
    # The counts of what it suppressed are not a finding.
    found=$(set -o pipefail && "clang-tidy-$LLVM" -p "$batch" --config-file="$root/.clang-tidy" --quiet "$batch/batch.cpp" 2>&1 |
        sed -E '/^[0-9]+ (warning|error)s? .*generated\.$/d; /^$/d') || status=$?
    if [[ $found ]] || ((status)); then
        printf '%s\n' "${found:-$(<"$batch/batch.cpp"): clang-tidy ended with status $status}"
    else
        cut -f 2 "$list" | grep . | xargs -r touch
    fi
}
