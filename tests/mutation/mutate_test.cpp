// ./dev mutate: a program of a few lines, its build, and a test of it, in a folder of their own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "support/contents.h"

namespace test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

struct Outcome {
    int status;
    std::string output;
};

constexpr const char* limit_header = "#pragma once\nconstexpr int largest = 10;\n";
constexpr const char* limit_source =
    "#include \"limit.h\"\n"
    "#include <cstdlib>\n"
    "int limited(int value) {\n"
    "    if (value < largest) return value;\n"
    "    return largest;\n"
    "}\n"
    "const char* nothing() { return \"\"; }\n"
    "struct Kept { Kept() = delete; };\n"
    "int main(int, char** words) { return limited(std::atoi(words[1])); }\n";
constexpr const char* limit_build =
    "rule compile\n"
    "  command = " COMPILER
    " -MD -MT $out -MF $out.d -o $out -c $in\n"
    "  depfile = $out.d\n"
    "  deps = gcc\n"
    "rule link\n"
    "  command = : && " COMPILER
    " -o $out $in && :\n"
    "build limit.o: compile ../source/limit.cpp\n"
    "build lib/limit: link limit.o\n";
constexpr const char* limit_tests =
    "#!/bin/sh\n"
    "\"$LIMIT\" 5; [ $? = 5 ] || { echo FAILED: Limit.KeepsWhatIsBelow; exit 1; }\n"
    "\"$LIMIT\" 50; [ $? = 10 ] || { echo FAILED: Limit.CutsWhatIsAbove; exit 1; }\n";
constexpr const char* limit_explained =
    "source/limit.cpp\n- if (value < largest) return value;\n+ if (value <= largest) return value;\n"
    "The largest value is answered either way.\n";

class Mutate : public testing::Test {
  protected:
    Mutate() {
        std::string pattern = (fs::temp_directory_path() / "huecraft-mutate-test-XXXXXX").string();
        root_ = fs::canonical(mkdtemp(pattern.data()));
        write("source/limit.h", limit_header);
        write("source/limit.cpp", limit_source);
        write("build/build.ninja", limit_build);
        write("build/bin/limit_tests", limit_tests);
        fs::permissions(root_ / "build/bin/limit_tests", fs::perms::owner_all);
        write("tests/mutation/judges.txt", "# judges\nsource lib/limit LIMIT=lib/limit limit_tests\n");
        write("tests/mutation/explained.txt", "# none\n");
        build();
    }
    ~Mutate() override { fs::remove_all(root_); }

    void write(const std::string& name, const std::string& contents) const {
        fs::create_directories((root_ / name).parent_path());
        std::ofstream(root_ / name) << contents;
    }
    std::string read(const std::string& name) const { return contents_of(root_ / name); }

    Outcome run_shell(const std::string& command) const {
        const std::string whole = "cd '" + root_.string() + "' && " + command + " 2>&1";
        std::FILE* pipe = popen(whole.c_str(), "r");
        Outcome outcome{.status = -1, .output = ""};
        char bytes[4096];
        while (const size_t count = std::fread(bytes, 1, sizeof bytes, pipe))
            outcome.output.append(bytes, count);
        const int status = pclose(pipe);
        if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
        return outcome;
    }
    void build() const {
        const Outcome outcome = run_shell("ninja -C build");
        EXPECT_EQ(outcome.status, 0) << outcome.output;
    }
    /// Tests of two suites, Limit.Keeps and Sum.Adds; the shell's branches say what each does when it is
    /// asked for.
    void write_two_suites(const std::string& branches) const {
        write("build/bin/limit_tests",
              "#!/bin/sh\n"
              "case \"$*\" in\n"
              "*--gtest_list_tests*) echo Limit.; echo '  Keeps'; echo Sum.; echo '  Adds' ;;\n" +
                  branches + "esac\n");
    }
    Outcome mutate(const std::string& arguments) const {
        return run_shell("'" MUTATE "' --root . --build build " + arguments);
    }
    void expect_listed(const std::string& source, const std::string& change) const {
        write("source/limit.cpp", source);
        EXPECT_THAT(mutate("source/limit.cpp --list").output, HasSubstr("    + " + change + "\n")) << source;
    }
    void expect_nothing_to_change(const std::string& source) const {
        write("source/limit.cpp", source);
        const Outcome outcome = mutate("source/limit.cpp --list");
        EXPECT_EQ(outcome.output, "mutate: nothing there can be changed (see ./dev mutate --help)\n")
            << source;
    }

    fs::path root_;
};

// --- What is changed ---

TEST_F(Mutate, ComparisonsAreFlipped) {
    expect_listed("bool f(int a) { return a <= b; }", "bool f(int a) { return a < b; }");
    expect_listed("bool f(int a) { return a != b; }", "bool f(int a) { return a == b; }");
}

TEST_F(Mutate, ConstantsAreShiftedBothWays) {
    expect_listed("int x = 7;", "int x = (7 + 1);");
    expect_listed("float x = 1.5e-3f;", "float x = (1.5e-3f - 1);");
}

TEST_F(Mutate, LiteralsAreChanged) {
    expect_listed("bool x = true;", "bool x = false;");
    expect_listed("auto x = \"a\\\"b\"_ns;", "auto x = \"~a\\\"b\"_ns;");
}

TEST_F(Mutate, ConditionsAreNegated) {
    expect_listed("void f() { if (a == b) g(); }", "void f() { if (!(a == b)) g(); }");
    expect_listed("void f() { if (!a) g(); }", "void f() { if (a) g(); }");
    expect_listed("void f() { if (T* x = h()) g(x); }", "void f() { if (T* x = h(); !x) g(x); }");
    expect_listed("int f() { return a ? b : c; }", "int f() { return a && false ? b : c; }");
}

TEST_F(Mutate, CallsAndAssignmentsAreRemoved) {
    expect_listed("void f() { g(1)->h(); }", "void f() { ; }");
    expect_listed("void f() { x.y = z; }", "void f() { ; }");
    expect_listed("void f() { each([] { g(); }); }", "void f() { each([] { ; }); }");
}

TEST_F(Mutate, ResultsAreEmptied) { expect_listed("T f() { return g(h); }", "T f() { return {}; }"); }

TEST_F(Mutate, DeclarationsTemplatesAndCommentsStay) {
    expect_nothing_to_change(
        "// 1 < 2\n#define X \\\n 1 < 2\n/* 3 */ template <class T> void f(V<T>* x, T& y);\n");
    expect_nothing_to_change(
        "void f() { T* x = y; const U<T>& z(x); V w{x}; static_assert(1 < 2, \"text\"); }");
}

// --- What becomes of it ---

TEST_F(Mutate, AKilledMutantIsKilledByACaseThatIsNamed) {
    const Outcome outcome = mutate("source/limit.cpp:5");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output,
                AllOf(HasSubstr("killed: source/limit.cpp:5 by limit_tests Limit.CutsWhatIsAbove\n"),
                      HasSubstr("1 found, 1 tried, 1 killed, 0 survived")));
}

TEST_F(Mutate, ASurvivorIsShownAndFails) {
    const Outcome outcome = mutate("source/limit.cpp:4");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("SURVIVED: source/limit.cpp:4\n"
                                          "    - if (value < largest) return value;\n"
                                          "    + if (value <= largest) return value;\n"));
    EXPECT_THAT(outcome.output, HasSubstr("3 tried, 2 killed, 1 survived"));
}

TEST_F(Mutate, AnExplainedSurvivorDoesNotFail) {
    write("tests/mutation/explained.txt", limit_explained);
    const Outcome outcome = mutate("source/limit.cpp:4");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("2 killed, 0 survived, 1 explained"));
}

TEST_F(Mutate, WhatDoesNotCompileIsCountedApart) {
    write("source/limit.cpp", std::string(limit_source) +
                                  "constexpr int few[1] = {};\nint last = few[0];\n"
                                  "static_assert(sizeof few == sizeof(int));\n");
    build();
    const Outcome outcome = mutate("source/limit.cpp:10");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("2 tried, 0 killed, 0 survived, 0 explained, 2 not compiled"));
}

TEST_F(Mutate, WhatIsLeftOutOnThisProcessorIsCountedApart) {
    write("source/limit.cpp", std::string(limit_source) + "#if 0\nint left_out = 1;\n#endif\n");
    build();
    const Outcome outcome = mutate("source/limit.cpp:11");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("2 tried, 0 killed, 0 survived, 0 explained, 0 not compiled, 2 the "
                                          "same code"));
}

TEST_F(Mutate, AHeaderIsJudgedByWhatIncludesIt) {
    const Outcome outcome = mutate("source/limit.h");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("2 tried, 2 killed"));
}

TEST_F(Mutate, OfManyMutantsEachIsJudgedByTheSuitesThatReachItsLine) {
    // What is asked is written down, but for the cases that failed lately: they are asked for by name.
    write_two_suites(
        "*Limit.*) echo Limit >>../asked; \"$LIMIT\" 5; [ $? = 5 ] || { echo FAILED: Limit.Keeps; exit 1; } "
        ";;\n"
        "*Sum.*) echo Sum >>../asked; \"$LIMIT\" 1 2; [ $? = 28 ] || { echo FAILED: Sum.Adds; exit 1; } "
        ";;\n");
    write("source/limit.cpp",
          "int limited(int value) {\n"
          "    return value;\n"
          "}\n"
          "int sum() { return 1 + 2 + 3 + 4 + 5 + 6 + 7; }\n"
          "int main(int count, char** words) { return count > 2 ? sum() : limited(*words[1] - '0'); }\n");
    build();
    const Outcome outcome = mutate("source/limit.cpp:4");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("21 tried, 21 killed")) << outcome.output;
    const std::string asked = read("asked");
    EXPECT_TRUE(asked.starts_with("Limit\nSum\nSum\n")) << asked;
    EXPECT_EQ(asked.rfind("Limit"), 0u) << asked;
}

TEST_F(Mutate, WhatTheReachingSuitesLetLiveIsJudgedByTheOthers) {
    // Only the other suite runs the line, and does not look at what comes of it: the first has it from the
    // compiler.
    write_two_suites(
        "*Limit.* | *-Sum.*) \"$LIMIT\"; [ $? = 10 ] || { echo FAILED: Limit.Keeps; exit 1; } ;;\n"
        "*Sum.*) \"$LIMIT\" 1 2; exit 0 ;;\n");
    write("source/limit.cpp",
          "constexpr int sum(int less) { return 1 + 2 + 3 + 4 + 5 + 6 + 7 - less; }\n"
          "constexpr int largest = sum(18);\n"
          "int main(int count, char**) { return count > 2 ? sum(count) : largest; }\n");
    build();
    const Outcome outcome = mutate("source/limit.cpp:1");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, AllOf(HasSubstr("by limit_tests Limit.Keeps\n"), HasSubstr(" 0 survived")));
}

TEST_F(Mutate, AHeaderIsJudgedThroughOneFromElsewhereThatIncludesIt) {
    write("source/limit.cpp", "#include \"../other/limits.h\"\n" + std::string(limit_source));
    for (const std::string& name : {(root_ / "source/limit.h").string(), std::string("../source/limit.h")}) {
        write("other/limits.h", "#include \"" + name + "\"\n");
        build();
        EXPECT_THAT(mutate("source/limit.h").output, HasSubstr("2 tried, 2 killed")) << name;
    }
}

TEST_F(Mutate, HeadersFromElsewhereAreThereAsBefore) {
    write("other/words.h", "#pragma once\ninline const char* word() { return \"\"; }\n");
    write("source/limit.cpp", "#include \"../other/words.h\"\n" + std::string(limit_source));
    build();
    EXPECT_THAT(mutate("source/limit.cpp:6").output, HasSubstr("1 tried, 1 killed"));
}

TEST_F(Mutate, WhatTheBuildReadsOnceIsReadAgain) {
    write("build/build.ninja",
          "rule read\n"
          "  command = " COMPILER
          " -x c++-header -o $out $in\n"
          "rule compile\n"
          "  command = env CCACHE_DISABLE=1 ccache " COMPILER
          " -Xclang -include-pch -Xclang limit.pch -Xclang -include -Xclang ../source/limit.h"
          " -MD -MT $out -MF $out.d -o $out -c $in\n"
          "  depfile = $out.d\n"
          "  deps = gcc\n"
          "rule link\n"
          "  command = : && " COMPILER
          " -o $out $in && :\n"
          "build limit.pch: read ../source/limit.h\n"
          "build limit.o: compile ../source/limit.cpp | limit.pch\n"
          "build lib/limit: link limit.o\n");
    build();
    EXPECT_THAT(mutate("source/limit.h").output, HasSubstr("2 tried, 2 killed"));
}

TEST_F(Mutate, AnArchiveIsJudgedByTheProgramThatHoldsIt) {
    write("source/limit.cpp",
          "int limited(int value) {\n    if (value > 10) return 10;\n    return value;\n}\n");
    write("tests/limit_tests.cpp",
          "#include <cstdio>\n"
          "int limited(int);\n"
          "int main() {\n"
          "    if (limited(5) == 5 && limited(50) == 10) return 0;\n"
          "    std::puts(\"FAILED: Limit.IsKept\");\n"
          "    return 1;\n"
          "}\n");
    write("build/build.ninja",
          "rule compile\n"
          "  command = " COMPILER
          " -MD -MT $out -MF $out.d -o $out -c $in\n"
          "  depfile = $out.d\n"
          "  deps = gcc\n"
          "rule archive\n"
          "  command = : && rm -f $out && ar qc $out $in && :\n"
          "rule link\n"
          "  command = : && " COMPILER
          " -o $out $in && :\n"
          "build limit.o: compile ../source/limit.cpp\n"
          "build tests.o: compile ../tests/limit_tests.cpp\n"
          "build limit.a: archive limit.o\n"
          "build bin/limit_tests: link tests.o limit.a\n");
    write("tests/mutation/judges.txt", "source bin/limit_tests limit_tests\n");
    fs::remove(root_ / "build/bin/limit_tests");
    build();
    EXPECT_THAT(mutate("source/limit.cpp:3").output,
                AllOf(HasSubstr("killed: source/limit.cpp:3 by limit_tests Limit.IsKept\n"),
                      HasSubstr("1 tried, 1 killed")));
}

TEST_F(Mutate, WhatOneImagesTestsLetLiveIsJudgedInTheNext) {
    write("tests/mutation/judges.txt",
          "source lib/limit LIMIT=lib/limit lenient_tests\nsource lib/limit LIMIT=lib/limit limit_tests\n");
    write("build/bin/lenient_tests",
          "#!/bin/sh\n\"$LIMIT\" 5; [ $? = 5 ] || { echo FAILED: Limit.Keeps; exit 1; }\n");
    fs::permissions(root_ / "build/bin/lenient_tests", fs::perms::owner_all);
    EXPECT_THAT(mutate("source/limit.cpp:5").output,
                HasSubstr("killed: source/limit.cpp:5 by limit_tests Limit.CutsWhatIsAbove\n"));
}

TEST_F(Mutate, WhatJudgesAnotherFolderIsNotAsked) {
    write("tests/mutation/judges.txt",
          "source lib/limit LIMIT=lib/limit limit_tests\n"
          "source/other.cpp lib/limit OTHER=lib/limit other_tests\n");
    write("build/bin/other_tests", "#!/bin/sh\nexit 0\n");
    fs::permissions(root_ / "build/bin/other_tests", fs::perms::owner_all);
    write("source/other.cpp", "int other() { return 1; }\n");
    std::string with_other = limit_build;
    with_other.insert(with_other.rfind('\n'), " other.o\nbuild other.o: compile ../source/other.cpp");
    write("build/build.ninja", with_other);
    build();
    EXPECT_THAT(mutate("source/limit.cpp:5 source/other.cpp").output,
                AllOf(HasSubstr("killed: source/limit.cpp:5 by limit_tests Limit.CutsWhatIsAbove\n"),
                      HasSubstr("4 tried, 1 killed, 3 survived")));
}

TEST_F(Mutate, WhatAnotherImageJudgesNeedNotLinkWithThisOne) {
    // Both programs are linked with the archive, and one alone has what limit.cpp needs.
    const auto write_tests = [this](const std::string& name, const std::string& sum,
                                    const std::string& also) {
        write("tests/" + name + "_tests.cpp",
              "#include <cstdio>\n#include <string>\nint " + name + "();\n" + also +
                  "int main(int count, char** words) {\n"
                  "    if (count > 1 && words[1] == std::string(\"--gtest_list_tests\"))\n"
                  "        return std::puts(\"Sum.\"), 0;\n"
                  "    if (" +
                  name + "() == " + sum +
                  ") return 0;\n"
                  "    std::puts(\"FAILED: Sum.IsRight\");\n"
                  "    return 1;\n"
                  "}\n");
    };
    write("source/limit.cpp", "int none();\nint limit() { return none() + 1 + 2 + 3 + 4 + 5 + 6 + 7; }\n");
    write("source/other.cpp", "int other() { return 1; }\n");
    write_tests("limit", "28", "int none() { return 0; }\n");
    write_tests("other", "1", "");
    write("build/build.ninja",
          std::string(limit_build).substr(0, std::string(limit_build).find("build limit.o")) +
              "rule archive\n"
              "  command = : && rm -f $out && ar qc $out $in && :\n"
              "build limit.o: compile ../source/limit.cpp\n"
              "build other.o: compile ../source/other.cpp\n"
              "build limit_tests.o: compile ../tests/limit_tests.cpp\n"
              "build other_tests.o: compile ../tests/other_tests.cpp\n"
              "build both.a: archive limit.o other.o\n"
              "build bin/limit_tests: link limit_tests.o both.a\n"
              "build bin/other_tests: link other_tests.o both.a\n");
    write("tests/mutation/judges.txt",
          "source bin/limit_tests limit_tests\nsource/other.cpp bin/other_tests other_tests\n");
    fs::remove(root_ / "build/bin/limit_tests");
    build();
    EXPECT_THAT(mutate("source").output, HasSubstr("25 found, 25 tried, 25 killed"));
}

TEST_F(Mutate, ACaseThatIsLeftOutDoesNotJudge) {
    write("tests/mutation/judges.txt", "source lib/limit LIMIT=lib/limit -Limit.IsSlow limit_tests\n");
    write("build/bin/limit_tests",
          "#!/bin/sh\ncase \"$*\" in *--gtest_filter=-Limit.IsSlow*) exit 0 ;; esac\n"
          "echo FAILED: Limit.IsSlow; exit 1\n");
    EXPECT_THAT(mutate("source/limit.cpp:5").output, HasSubstr("SURVIVED: source/limit.cpp:5\n"));
}

TEST_F(Mutate, TheSourcesAndTheBuildStayAsTheyAre) {
    const Outcome before = run_shell("ls -lR --time-style=full-iso");
    mutate("source");
    EXPECT_EQ(run_shell("ls -lR --time-style=full-iso").output, before.output);
    EXPECT_EQ(read("source/limit.cpp"), limit_source);
}

TEST_F(Mutate, ASeedDecidesTheSample) {
    const Outcome first = mutate("source --sample 3 --seed 5 --list");
    EXPECT_THAT(first.output, HasSubstr("3 tried"));
    EXPECT_EQ(mutate("source --sample 3 --seed 5 --list").output, first.output);
    EXPECT_NE(mutate("source --sample 3 --seed 6 --list").output, first.output);
}

// --- What is refused ---

TEST_F(Mutate, TestsThatFailWithoutAChangeAreRefused) {
    write("build/bin/limit_tests", "#!/bin/sh\necho FAILED: Limit.Always; exit 1\n");
    const Outcome outcome = mutate("source/limit.cpp:5");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(
        outcome.output,
        "mutate: without any change the tests fail: limit_tests Limit.Always (see ./dev mutate --help)\n");
}

TEST_F(Mutate, AnExplanationOfWhatIsGoneIsRefused) {
    write("tests/mutation/explained.txt", "# why\n\n" + std::string(limit_explained));
    write("source/limit.cpp", "int x = 1;\n");
    const Outcome outcome = mutate("source");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.output,
                HasSubstr("tests/mutation/explained.txt:3: source/limit.cpp has no such mutant any more: "
                          "if (value <= largest) return value;"));
}

TEST_F(Mutate, AnExplanationWithoutAReasonIsRefused) {
    write("tests/mutation/explained.txt", "source/limit.cpp\n- a\n+ b\n");
    const Outcome outcome = mutate("source");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.output,
                HasSubstr("explained.txt:1: expected a file, \"- <before>\", \"+ <after>\" and a reason"));
}

TEST_F(Mutate, AFileThatNoTestJudgesIsRefused) {
    write("other/x.cpp", "int x = 1;\n");
    EXPECT_THAT(mutate("other/x.cpp").output,
                HasSubstr("other/x.cpp: no tests judge it; expected a source in one of source"));
    EXPECT_THAT(mutate("none.cpp").output, HasSubstr("none.cpp: there is no such file or folder"));
    EXPECT_EQ(mutate("source/limit.cpp:0").status, 2);
}

}  // namespace
}  // namespace test
