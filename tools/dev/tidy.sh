# clang-tidy over all sources, for ./dev lint. Sourced by lint.sh.
# shellcheck shell=bash

# A source costs seconds on its own, nearly all of them for what it includes. So sources are read as one, many at a time. Those in
# which the compiler finds a name that another has as well are left for the next batch.
tidy_batch=150

# What clang-tidy found nothing in is not read again: build/tidy/sound has an empty file named after a digest of all that
# decides it, which is the checks, their version, the words, and the source with whatever the build says that it includes.
check_tidy() {
    local build=$root/build/release tidy=$root/build/tidy
    rm -rf "$tidy/sources" "$tidy/groups" "$tidy/batches"
    mkdir -p "$tidy/sources" "$tidy/groups" "$tidy/batches" "$tidy/sound"
    tidy_sources "$build" >"$tidy/list"
    tidy_includes "$build" "$tidy"
    tidy_groups "$build" "$tidy"
    tidy_batches "$tidy" |
        LLVM=$llvm xargs -r -n 1 -P "$(nproc)" bash -c "$(declare -f tidy_read); tidy_read \"\$1\"" tidy
}

# tidy_sources <build>: a line for each source: it, its object, its configuration, the words that it is read with, and those that are
# its own, by tabs. Sources of one dialect and configuration get the same words: the folders and the definitions of each are had by all.
# What decides the code that is made, and not how the source is understood, is left out.
tidy_sources() {
    awk -v root="$root/" '
        /^  "command": / { words = substr($0, 15); sub(/",$/, "", words) }
        /^  "file": / {
            source = substr($0, 12); sub(/",?$/, "", source)
            if (index(source, root "build/") == 1 || index(source, root) != 1 || source !~ /\.cpp$/ || source in seen) next
            seen[source] = 1
            match(words, / -o [^ ]+ -c /)
            object[source] = substr(words, RSTART + 4, RLENGTH - 8)
            count = split(substr(words, 1, RSTART - 1), word, " -")
            path = substr(source, length(root) + 1)
            group = (path ~ /^(tests|tools)\// ? substr(path, 1, 5) "/" : "") ".clang-tidy\t" word[1]
            joined = ""
            for (i = 2; i <= count; ++i) {
                if (word[i] ~ /^(O|g|Xclang|include|Winvalid-pch|fno-pch-timestamp|fPI[CE]|fvisibility|fsanitize|ffp-contract)/ || word[i] ~ /^D.*_EXPORTS$/) continue
                # A folder of ours hides no header of the system from the sources of others.
                if (index(word[i], "I" root) == 1) sub(/^I/, "iquote ", word[i])
                if (word[i] ~ /^(D.*=|I|i(system|quote) |pthread)/) joined = joined "\n" word[i]
                else group = group " -" word[i]
            }
            in_group[source] = group
            own[source] = joined
            gsub("\n", " -", own[source])
            count = split(joined, word, "\n")
            for (i = 2; i <= count; ++i)
                if (!((group, word[i]) in has)) { has[group, word[i]] = 1; shared[group] = shared[group] " -" word[i] }
            order[++sources] = source
        }
        END {
            for (i = 1; i <= sources; ++i) {
                source = order[i]
                print substr(source, length(root) + 1) "\t" object[source] "\t" in_group[source] shared[in_group[source]] \
                    "\t" substr(in_group[source], index(in_group[source], "\t") + 1) own[source]
            }
        }' "$1/compile_commands.json"
}

# tidy_includes <build> <tidy>: sources/<source> gets all that decides what is found in it, if the build knows that.
tidy_includes() {
    local build=$1 tidy=$2
    ninja -C "$build" -t deps | awk '/: #deps/ { sub(/:$/, "", $1); object = $1 } /^    / { print object "\t" substr($0, 5) }' >"$tidy/deps"
    (cd "$build" && cut -f 2 "$tidy/deps" | sort -u | tr '\n' '\0' | xargs -0 -r sha256sum 2>/dev/null) >"$tidy/digests"
    awk -F '\t' -v tidy="$tidy" -v rules="$(cat "$root"/{,tests/,tools/}.clang-tidy "$root/.llvm-version" "$root/tools/dev/tidy.sh" | sha256sum)" '
        FILENAME ~ /digests$/ { digest[substr($0, 67)] = substr($0, 1, 64); next }
        FILENAME ~ /list$/ { of[$2] = $1; words[$2] = $3 " " $4; next }
        $1 in of {
            file = of[$1]; gsub("/", ":", file); file = tidy "/sources/" file
            if (file != last) { close(last); print rules, words[$1] >file }
            print digest[$2], $2 >file
            last = file
        }' "$tidy/digests" "$tidy/list" "$tidy/deps"
}

# tidy_groups <build> <tidy>: groups/<number>.list has the sources of one dialect and configuration that are not known to be sound,
# each with the file that says it is, and its own words; .words what compiles them, as JSON spells it, and .checks their configuration.
tidy_groups() {
    local build=$1 tidy=$2
    (cd "$tidy/sources" && find . -type f -printf '%P\0' | xargs -0 -r sha256sum) |
        awk '{ print substr($0, 67) "\t" substr($0, 1, 64) }' >"$tidy/stamps"
    find "$tidy/sound" -type f -printf '%f\n' >"$tidy/known"
    sort -t $'\t' -k 3,4 -k 1,1 "$tidy/list" | awk -F '\t' -v tidy="$tidy" '
        FILENAME ~ /known$/ { known[$1] = 1; next }
        FILENAME ~ /stamps$/ { stamp[$1] = $2; next }
        {
            name = $1; gsub("/", ":", name)
            if (stamp[name] in known) next
            if ($3 != checks || $4 != words) {
                checks = $3; words = $4
                group = tidy "/groups/" sprintf("%02d", ++number)
                print words >(group ".words"); close(group ".words")
                print checks >(group ".checks"); close(group ".checks")
            }
            print $1 "\t" (name in stamp ? tidy "/sound/" stamp[name] : "") "\t" $5 >(group ".list")
        }' "$tidy/known" "$tidy/stamps" -
}

# tidy_batches <tidy>: prints batches/<number> as soon as its .list has sources that stand in one translation unit.
tidy_batches() {
    local tidy=$1 group batch number=0 clashing
    for group in "$tidy"/groups/*.list; do
        [[ -e $group ]] || continue
        group=${group%.list}
        while [[ -s $group.list ]]; do
            printf -v batch '%s/batches/%03d' "$tidy" "$((number += 1))"
            cp "$group.words" "$batch.words"
            cp "$group.checks" "$batch.checks"
            head -n "$tidy_batch" "$group.list" >"$batch.list"
            tail -n +$((tidy_batch + 1)) "$group.list" >"$batch.rest"
            : >"$group.list"
            clashing=$(tidy_alike "$batch")
            while (($(wc -l <"$batch.list") > 1)); do
                if [[ ! $clashing ]]; then
                    tidy_write "$batch"
                    clashing=$(tidy_clashing "$batch")
                    [[ $clashing ]] || break
                fi
                awk -F '\t' -v clashing="$clashing" -v kept="$batch.kept" '
                    BEGIN { count = split(clashing, name, "\n"); for (i = 1; i <= count; ++i) left[name[i]] = 1 }
                    { if ($1 in left) print; else print >kept }' "$batch.list" >>"$group.list"
                mv "$batch.kept" "$batch.list"
                clashing=
            done
            cat "$batch.rest" >>"$group.list"
            # A header may be another one in a folder that is not its own.
            (($(wc -l <"$batch.list") > 1)) || cut -f 3 "$batch.list" >"$batch.words"
            tidy_write "$batch"
            echo "$batch"
        done
    done
}

# tidy_alike <batch>: prints the sources that by their looks define a name that one before them has. It spares the compiler, which
# has the last word, most of what it would find.
tidy_alike() {
    cut -f 1 "$1.list" | xargs awk '
        function close_source(name) {
            for (name in own) if (name in taken) alike = 1
            if (alike) print source
            else for (name in own) taken[name] = 1
            delete own
            alike = 0
        }
        FNR == 1 { if (source != "") close_source(); source = FILENAME; space = "" }
        /^namespace [a-z_:]+ \{/ { space = $2; next }
        /^(class|struct|union|enum( class)?) [A-Za-z_]+ / && !/;$/ { own[space " " ($2 == "class" ? $3 : $2)] = 1; next }
        /^using [A-Za-z_]+ =/ { own[space " " $2] = 1; next }
        /^TEST(_F|_P)?\(/ { sub(/^TEST(_F|_P)?/, ""); own[space " " $1 $2] = 1; next }
        /^[A-Za-z].*[ *&][A-Za-z_]+(\(.*[^;]$| = |\[|\{)/ && !/^(using|namespace|template|extern|LLVM)/ {
            match($0, /[ *&][A-Za-z_]+(\(| = |\[|\{)/)
            name = substr($0, RSTART + 1, RLENGTH - 1)
            sub(/[^A-Za-z_].*/, "", name)
            own[space " " name] = 1
        }
        END { close_source() }'
}

# tidy_write <batch>: the translation unit that includes the sources of its .list.
tidy_write() {
    mkdir -p "$1"
    # To include a source is what a batch is for. Each program under the fuzzer has these functions.
    cut -f 1 "$1.list" | awk -v root="$root" '{
        print "#define LLVMFuzzerTestOneInput LLVMFuzzerTestOneInput" NR "\n#define LLVMFuzzerCustomMutator LLVMFuzzerCustomMutator" NR
        print "#include \"" root "/" $0 "\"  // NOLINT"
        print "#undef LLVMFuzzerTestOneInput\n#undef LLVMFuzzerCustomMutator"
    }' >"$1/batch.cpp"
    printf '[{"directory": "%s", "file": "%s", "command": "%s -c %s"}]\n' "$root/build/release" "$1/batch.cpp" \
        "$(<"$1.words")" "$1/batch.cpp" >"$1/compile_commands.json"
}

# tidy_clashing <batch>: prints the sources, never the first, that do not stand with those before them.
tidy_clashing() {
    (cd build/release && eval "$(sed 's/\\\(.\)/\1/g' "$1.words")" -fsyntax-only -w -ferror-limit=0 -fno-caret-diagnostics "$1/batch.cpp" 2>&1) \
        >"$1.said" && return
    # Of an error in a header the line before says which source included it.
    awk -F '\t' -v root="$root/" -v batch="$1/batch.cpp" '
        FILENAME ~ /list$/ { source[++sources] = $1; place[root $1] = sources; next }
        index($0, "In file included from " batch ":") == 1 {
            last = int((substr($0, length("In file included from " batch ":") + 1) + 2) / 5)
        }
        match($0, /:[0-9]+:[0-9]+: (fatal )?error: /) {
            file = substr($0, 1, RSTART - 1)
            bad[file in place ? place[file] : last] = 1
        }
        END {
            for (i = 2; i <= sources; ++i) if (i in bad) { print source[i]; found = 1 }
            if (!found) for (i = int(sources / 2) + 1; i <= sources; ++i) print source[i]
        }' "$1.list" "$1.said"
}

# tidy_read <batch>: prints what clang-tidy finds in its sources.
tidy_read() {
    local batch=$1 root=$PWD found status=0
    # The counts of what it suppressed are not a finding.
    found=$(set -o pipefail && "clang-tidy-$LLVM" -p "$batch" --config-file="$root/$(<"$batch.checks")" --quiet "$batch/batch.cpp" 2>&1 |
        sed -E '/^[0-9]+ (warning|error)s? .*generated\.$/d; /^$/d') || status=$?
    if [[ $found ]] || ((status)); then
        printf '%s\n' "${found:-$(<"$batch/batch.cpp"): clang-tidy ended with status $status}"
    else
        cut -f 2 "$batch.list" | grep . | xargs -r touch
    fi
}
