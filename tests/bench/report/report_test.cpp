// What a run of the benchmark says of another: figures as JSON, and what became dearer beyond noise.
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "report/comparison.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

Measurements run_with(const char* unit, Measured value) { return {"a processor", {{"a row", unit, value}}}; }

Comparison from_to(const char* unit, Measured then, Measured now) {
    return compare(run_with(unit, then), run_with(unit, now));
}

TEST(BenchComparison, WhatIsDearerForCertainIsNamedWithBothFigures) {
    const Comparison found = from_to("seconds", {10e-6, 9e-6, 11e-6}, {20e-6, 18e-6, 21e-6});
    ASSERT_EQ(found.dearer.size(), 1u);
    EXPECT_EQ(in_words(found), "dearer: a row: 10.0 us, now 20.0 us (+100.0 %)\n");
}

TEST(BenchComparison, WhatIsCheaperForCertainIsNamed) {
    const Comparison found = from_to("ratio", {2, 1.9, 2.1}, {1, 0.9, 1.1});
    EXPECT_TRUE(found.dearer.empty());
    EXPECT_EQ(in_words(found), "cheaper: a row: 2.000, now 1.000 (-50.0 %)\nNothing became dearer.\n");
}

TEST(BenchComparison, RangesThatOverlapAreNoChange) {
    EXPECT_EQ(in_words(from_to("seconds", {1, 0.9, 1.5}, {1.6, 1.4, 1.8})), "Nothing became dearer.\n");
}

TEST(BenchComparison, WhatAMachineDriftsByIsNoChange) {
    EXPECT_TRUE(from_to("seconds", 1.00, 1.04).dearer.empty());
    EXPECT_EQ(from_to("seconds", 1.00, 1.06).dearer.size(), 1u);
    EXPECT_TRUE(from_to("instructions", 1000, 1009).dearer.empty());
    EXPECT_EQ(from_to("instructions", 1000, 1011).dearer.size(), 1u);
}

TEST(BenchComparison, ACountMayNotRiseByOne) {
    EXPECT_EQ(from_to("allocations", 43, 44).dearer.size(), 1u);
    EXPECT_EQ(from_to("allocations live", 0, 1).dearer.size(), 1u);
    EXPECT_TRUE(from_to("allocations", 43, 43).dearer.empty());
}

TEST(BenchComparison, TheLargestRiseComesFirst) {
    const Measurements then{"p", {{"a", "ratio", 1}, {"b", "ratio", 1}, {"c", "ratio", 1}}},
        now{"p", {{"a", "ratio", 1.5}, {"b", "ratio", 3}, {"c", "ratio", 2}}};
    const Comparison found = compare(then, now);
    ASSERT_EQ(found.dearer.size(), 3u);
    EXPECT_EQ(found.dearer[0].now.name, "b");
    EXPECT_EQ(found.dearer[1].now.name, "c");
    EXPECT_EQ(found.dearer[2].now.name, "a");
}

TEST(BenchComparison, SecondsOfAnotherProcessorAreNotCompared) {
    const Measurements then{"one", {{"a", "seconds", 1}, {"a", "instructions", 100}}},
        now{"two", {{"a", "seconds", 9}, {"a", "instructions", 200}}};
    EXPECT_EQ(in_words(compare(then, now)),
              "Another processor: seconds are not compared.\n"
              "dearer: a: 100 instructions, now 200 instructions (+100.0 %)\n");
}

TEST(BenchComparison, SecondsThatHaveARatioAreNotCompared) {
    const Measurements then{"p", {{"a", "ratio", 1}, {"a", "seconds", 1}}},
        now{"p", {{"a", "ratio", 1}, {"a", "seconds", 5}}};
    EXPECT_EQ(in_words(compare(then, now)), "Nothing became dearer.\n");
}

TEST(BenchComparison, WhatOnlyOneRunHasIsNamed) {
    const Measurements then{"p", {{"old", "ratio", 1}, {"both", "ratio", 1}}},
        now{"p", {{"both", "ratio", 1}, {"new", "ratio", 1}}};
    EXPECT_EQ(in_words(compare(then, now)),
              "not measured now: old, ratio\nnot measured then: new, ratio\nNothing became dearer.\n");
    EXPECT_TRUE(compare(then, now, true).gone.empty()) << "only a part was measured now";
}

TEST(BenchFigures, AnIndentedRowBelongsToTheRowAboveIt) {
    const Measurements run =
        run_of({{.what = "a view", .against = "x", .cost = 1, .cost_against = 2},
                {.what = "  building it", .against = "by hand", .cost = 1, .cost_against = 2},
                {.what = "  building it", .against = "unthemed", .cost = 1, .cost_against = 2}},
               {});
    ASSERT_EQ(run.figures.size(), 6u);
    EXPECT_EQ(run.figures[0].name, "a view");
    EXPECT_EQ(run.figures[2].name, "a view: building it");
    EXPECT_EQ(run.figures[4].name, "a view: building it, against unthemed");
}

TEST(BenchFigures, ARatiosRangeIsThatOfBothItsCosts) {
    const Measurements run =
        run_of({{.what = "a", .against = "b", .cost = {10, 8, 12}, .cost_against = {5, 4, 8}}}, {});
    EXPECT_EQ(run.figures[0].value.value, 2);
    EXPECT_EQ(run.figures[0].value.low, 1);
    EXPECT_EQ(run.figures[0].value.high, 3);
}

class BenchFile : public testing::Test {
  protected:
    fs::path written(const std::string& text) const {
        std::ofstream(file_) << text;
        return file_;
    }
    /// What reading it fails with, after the file's name.
    std::string refusal(const std::string& text) const {
        try {
            read_run(written(text));
        } catch (const UnreadableRun& error) {
            const std::string said = error.what(), name = file_.string() + ": ";
            EXPECT_TRUE(said.starts_with(name)) << said;
            return said.substr(name.size());
        }
        return "";
    }
    ~BenchFile() override { fs::remove(file_); }

  private:
    fs::path file_ = fs::path(testing::TempDir()) / ("figures-" + std::to_string(getpid()) + ".json");
};

TEST_F(BenchFile, WhatIsWrittenIsRead) {
    const Measurements run{"a \"processor\"", {{"a", "seconds", {2.5e-7, 1e-7, 3e-7}}, {"b", "bytes", 4096}}};
    const Measurements read = read_run(written(json_of(run)));
    EXPECT_EQ(read.processor, run.processor);
    ASSERT_EQ(read.figures.size(), 2u);
    EXPECT_EQ(read.figures[0].name, "a");
    EXPECT_EQ(read.figures[0].unit, "seconds");
    EXPECT_EQ(read.figures[0].value.value, 2.5e-7);
    EXPECT_EQ(read.figures[0].value.low, 1e-7);
    EXPECT_EQ(read.figures[0].value.high, 3e-7);
    EXPECT_EQ(read.figures[1].value.value, 4096);
}

TEST_F(BenchFile, SaysWhatIsWrongWithItAndWhere) {
    EXPECT_EQ(refusal(""), "found no JSON object, expected what ./dev bench --json prints");
    EXPECT_EQ(refusal("[1]"), "found no JSON object, expected what ./dev bench --json prints");
    EXPECT_EQ(refusal("{}"), "format: found nothing, expected 1");
    EXPECT_EQ(refusal(R"({"format": 2})"), "format: found 2, expected 1");
    EXPECT_EQ(refusal(R"({"format": 1})"), "figures: found nothing, expected an array");
    EXPECT_EQ(refusal(R"({"format": 1, "figures": []})"), "processor: found nothing, expected a text");
    EXPECT_EQ(refusal(R"({"format": 1, "processor": "p", "figures": [{"name": "a", "unit": "ratio",
                          "value": 1, "low": "x", "high": 2}]})"),
              "figures[0].low: found \"x\", expected a number");
    EXPECT_EQ(refusal(R"({"format": 1, "processor": "p", "figures": [7]})"),
              "figures[0].name: found 7, expected a text");
}

TEST_F(BenchFile, OneThatIsNotThereIsNamed) {
    EXPECT_THROW(read_run("/nowhere/figures.json"), UnreadableRun);
}

}  // namespace
}  // namespace bench
