# ./dev lint: the checks that need no test. Sourced by dev.
# shellcheck shell=bash

# shellcheck source=tools/dev/tidy.sh
. "$root/tools/dev/tidy.sh"

help_lint() {
    cat <<END
usage: ./dev lint

Checks every file, tracked or not: format, clang-tidy, include directions, macros, lengths of files and folders, trailing
whitespace, links, scripts. Each check prints one line "ok ..." or the offending places, and any of those fails the command.
clang-tidy goes by the release build, which says what a file includes: what it found nothing in is not read again.
END
}

# files <find expression>: paths relative to the root, NUL-terminated
files() {
    find . \( -path ./.git -o -path ./build -o -path ./out \) -prune -o -type f \( "$@" \) -printf '%P\0' | sort -z
}
cpp_files() { files -name '*.cpp' -o -name '*.h' -o -name '*.m'; } # tests have some Objective-C
scripts() { files -perm -u+x | xargs -0 -r grep -lZ -m1 -E '^#!.*\b(ba)?sh$'; }

# check <what holds> <function>: the function prints what offends, and nothing when all is well
check() {
    local offences
    if offences=$("$2" 2>&1) && [[ -z $offences ]]; then
        echo "ok $1"
    else
        printf '%s\nnot ok %s\n' "${offences:-$2 failed}" "$1"
        lint_status=1
    fi
}

check_format() {
    cpp_files | xargs -0 -r "clang-format-$llvm" --dry-run -Werror --ferror-limit=1 2>&1 |
        sed -nE 's/^([^:]+:[0-9]+):[0-9]+: error: .*/\1: not as clang-format-'"$llvm"' -i writes it/p'
}

# Which folder may include which. The library and the simulator stand on objc and platform and include nothing
# of each other; inside each the arrows point one way, too. What is not listed here may include anything.
check_includes() {
    cpp_files | xargs -0 -r awk '
        BEGIN {
            below["objc"] = "objc"
            below["platform"] = "platform objc"
            below["readability"] = "readability"
            below["compatibility"] = "compatibility platform objc"
            below["pane"] = "pane readability compatibility platform objc"
            below["library"] = "hooks views settings model platform objc"
            below["library/model"] = "model platform objc"
            below["library/views"] = "views model platform objc"
            below["library/settings"] = "settings model platform objc"
            below["library/hooks"] = "hooks views model platform objc"
            below["loader"] = "loader objc"
            below["describe"] = "describe compatibility hooks platform objc"
            below["simulator/runtime"] = "runtime platform objc"
            below["simulator/phone"] = "phone runtime platform objc"
            below["simulator/foundation"] = "foundation phone runtime platform objc"
            below["simulator/coregraphics"] = "coregraphics runtime platform objc"
            below["simulator/quartzcore"] = "quartzcore coregraphics runtime platform objc"
            below["simulator/uikit"] = "uikit quartzcore coregraphics foundation phone runtime platform objc"
            below["simulator/keyboard"] = "keyboard uikit quartzcore coregraphics phone runtime platform objc"
            below["simulator/screen"] = "screen keyboard phone uikit quartzcore coregraphics runtime platform objc"
            below["simulator/settings"] = "settings uikit foundation phone runtime platform objc"
            below["simulator/interface"] = "interface settings screen keyboard uikit foundation phone runtime platform objc loader"
        }
        function holds(list, word) { return index(" " list " ", " " word " ") }
        /^[ \t]*#[ \t]*include[ \t]*"/ {
            split($0, quoted, "\"")
            n = split(quoted[2], path, "/")
            split(FILENAME, home, "/")
            folder = home[1] in below ? home[1] : home[1] "/" home[2]
            if (home[1] "/" home[2] in below) folder = home[1] "/" home[2]
            if (quoted[2] ~ /\.\./ || holds("library simulator tests", path[1]) && home[1] != path[1])
                allowed = 0
            else
                allowed = !(folder in below) || n == 1 || holds(below[folder], path[1])
            if (!allowed) print FILENAME ":" FNR ": must not include " quoted[2]
        }'
}

# Where a macro is the only means: the seam, the C headers of the device, and what a shared object exports.
check_macros() {
    cpp_files | grep -zvE '^(objc|device/sdk|simulator/include)/|^simulator/runtime/exported.h$' | xargs -0 -r grep -HnE '^[[:space:]]*#[[:space:]]*define\b' || true
}

check_lengths() {
    cpp_files | xargs -0 -r awk 'FNR == 601 { print FILENAME ":601: longer than 600 lines" }'
}

# Side by side: more than that are no longer read at a glance, and want folders by subject.
check_folders() {
    files -true | xargs -0 -r -n1 dirname | sort | uniq -c | awk '$1 > 25 { print $2 ": " $1 " files side by side" }'
}

# The forever corpus has files as others wrote them.
check_whitespace() { files -not -path './tests/corpus/*.plist' | xargs -0 -r grep -HnIE '[[:space:]]+$' || true; }

# Every relative link of a page leads to a file.
check_links() {
    local page target
    while IFS= read -r -d '' page; do
        grep -oE '\]\([^)]+\)' "$page" | sed -E 's/^\]\(//; s/[)#].*$//' | while IFS= read -r target; do
            [[ -z $target || $target == *:* || -e $(dirname "$page")/$target ]] || echo "$page: no file $target"
        done || true
    done < <(files -name '*.md')
}

check_scripts() {
    # Along with what they source.
    scripts | xargs -0 -r shellcheck --external-sources --check-sourced --severity=warning --format=gcc
}

command_lint() {
    (($# == 0)) || misuse "lint takes no '$1'" lint
    setup
    configure release
    cd "$root"
    lint_status=0
    check "C++ files are formatted" check_format
    check "includes point one way" check_includes
    check "macros are defined where nothing else serves" check_macros
    check "no C++ file has more than 600 lines" check_lengths
    check "no folder has more than 25 files side by side" check_folders
    check "no line ends in blanks" check_whitespace
    check "links of pages lead to files" check_links
    check "scripts are sound" check_scripts
    check "clang-tidy finds nothing" check_tidy
    return "$lint_status"
}
