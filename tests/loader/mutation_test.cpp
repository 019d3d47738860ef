// Damaged images at large: each loads and is imported, or is refused in one line, and nothing else happens.
#include "mutation.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "host.h"
#include "loader/fault.h"
#include "loader/format/slice.h"
#include "loader/image.h"
#include "loader/objc/objc_import.h"
#include "loader/objc/objc_metadata.h"
#include "objc/runtime.h"

#if __has_feature(address_sanitizer)
// Every process that is made copies what lies in the quarantine.
extern "C" const char* __asan_default_options() { return "quarantine_size_mb=4"; }
#endif

namespace {

using loader_test::Mutator;

#if __has_feature(address_sanitizer)
constexpr uint32_t share = 10;
#else
constexpr uint32_t share = 1;
#endif
constexpr uint32_t batch = 128;
constexpr unsigned longest_seconds = 20;

struct Subject {
    const char* name;
    uint32_t mutants;
};
// Above 20,000 in all under the sanitizer. Those with classes, which are imported in processes of their own,
// take the time.
constexpr Subject subjects[] = {
    {"plain", 384 * share},     {"shared", 384 * share},    {"frames", 384 * share},
    {"frameless", 384 * share}, {"registers", 384 * share}, {"classes", 160 * share},
    {"category", 160 * share},  {"widths", 96 * share},     {"HuecraftiOS12", 128 * share},
};
void PrintTo(const Subject& subject, std::ostream* out) { *out << subject.name; }

bool is_shipped(const std::string& image) { return image == "HuecraftiOS12"; }

std::vector<uint8_t> bytes_of(const std::string& image) {
    if (!is_shipped(image)) return loader_test::image_bytes(image);
    std::ifstream file(SHIPPED_LIBRARY, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Resolves everything: what is behind a name does not matter to an image that is not run, unless it is a
// class.
void* anything(const macho::Import& import) {
    static char somewhere[64];
    constexpr std::string_view class_prefix = "OBJC_CLASS_$_", metaclass_prefix = "OBJC_METACLASS_$_";
    const std::string_view symbol = import.symbol;
    const bool is_class = symbol.starts_with(class_prefix),
               is_metaclass = symbol.starts_with(metaclass_prefix);
    if (!is_class && !is_metaclass) return somewhere;
    const auto start = is_class ? class_prefix.size() : metaclass_prefix.size();
    Class found = objc_lookUpClass(import.symbol.c_str() + start);
    if (!found) found = objc_lookUpClass("NSObject");
    return is_class ? found : object_getClass(reinterpret_cast<id>(found));
}

enum class Outcome { loaded, refused, badly_refused };

/// One line that names the file.
Outcome judged(const char* message) {
    const std::string_view line = message;
    const bool is_line = line.starts_with("mutated.dylib: cannot ") && std::ranges::all_of(line, [](char c) {
                             return static_cast<unsigned char>(c) >= 0x20;
                         });
    if (!is_line) std::fprintf(stderr, "refused badly: %s\n", message);
    return is_line ? Outcome::refused : Outcome::badly_refused;
}

/// In a process of its own: a class cannot be registered twice.
Outcome imported(macho::Image& image) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(longest_seconds);
        try {
            macho::import_classes(image);
            _exit(static_cast<int>(Outcome::loaded));
        } catch (const macho::Error& error) {
            _exit(static_cast<int>(judged(error.what())));
        }
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) <= static_cast<int>(Outcome::badly_refused))
        return static_cast<Outcome>(WEXITSTATUS(status));
    std::raise(WIFSIGNALED(status) ? WTERMSIG(status) : SIGABRT);
    return Outcome::badly_refused;
}

/// The rules of the device's loader would hide most of the damage from the loader. They are asked by
/// themselves.
Outcome held_to(const macho::Rules& rules, const std::vector<uint8_t>& bytes) {
    try {
        const macho::Bytes slice = macho::choose_slice({bytes, "the file"}, macho::kThisCpu);
        macho::Layout layout = macho::read_layout(slice);
        macho::hold_to(rules, slice, layout);
        return Outcome::loaded;
    } catch (const macho::Fault& fault) {
        return judged(macho::Error("mutated.dylib: cannot load: " + std::string(fault.what())).what());
    }
}

Outcome load(const std::vector<uint8_t>& bytes) {
    for (const macho::Rules& rules : {macho::Rules{.signature = false}, macho::Rules{.structure = false}})
        if (held_to(rules, bytes) == Outcome::badly_refused) return Outcome::badly_refused;
    try {
        macho::Image image = macho::Image::load_bytes(bytes, "mutated.dylib", anything, macho::no_rules());
        try {
            const macho::ObjcMetadata metadata = macho::read_objc_metadata(image);
            if (metadata.classes.empty() && metadata.categories.empty()) return Outcome::loaded;
        } catch (const macho::Fault&) {
            return Outcome::refused;  // import_classes gives it the file's name
        }
        return imported(image);
    } catch (const macho::Error& error) {
        return judged(error.what());
    }
}

/// What a batch has come to, for the process that watches it.
struct Progress {
    uint32_t seed, loaded, refused, badly_refused;
};

class MutationTest : public testing::TestWithParam<Subject> {
  protected:
    static void SetUpTestSuite() { loader_test::define_host_classes(); }

    void SetUp() override {
        void* shared =
            mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        ASSERT_NE(shared, MAP_FAILED);
        progress = new (shared) Progress{};
    }
    void TearDown() override { munmap(progress, sizeof(Progress)); }

    /// Damages and loads in a child process. A crash ends that alone.
    void run(Mutator& mutator, uint32_t from, uint32_t to) const {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (progress->seed = from; progress->seed < to; ++progress->seed) {
                alarm(longest_seconds);
                switch (load(mutator.mutated(progress->seed))) {
                    case Outcome::loaded: ++progress->loaded; break;
                    case Outcome::refused: ++progress->refused; break;
                    case Outcome::badly_refused: _exit(2);
                }
            }
            _exit(0);
        }
        int status = 0;
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        EXPECT_EQ(status, 0) << GetParam().name << ", seed " << progress->seed << ": "
                             << (WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "it ended badly");
    }

    Progress* progress = nullptr;
};

TEST_P(MutationTest, EachDamagedImageIsImportedOrRefused) {
    const std::vector<uint8_t> intact = bytes_of(GetParam().name);
    ASSERT_EQ(load(intact), Outcome::loaded);
    Mutator mutator(intact);
    const uint32_t mutants = GetParam().mutants;
    for (uint32_t seed = 0; seed < mutants && !HasFailure(); seed += batch)
        run(mutator, seed, std::min(seed + batch, mutants));
    // Were all of them refused, or none, this would have tested little.
    EXPECT_GT(progress->loaded, mutants / 10);
    EXPECT_GT(progress->refused, mutants / 10);
    EXPECT_EQ(progress->loaded + progress->refused, mutants);
}

TEST_P(MutationTest, AnImageCutShortAnywhereIsRefused) {
    const std::vector<uint8_t> intact = bytes_of(GetParam().name);
    for (size_t size = 0; size < intact.size(); size += 1 + size / 16)
        EXPECT_NE(load({intact.begin(), intact.begin() + static_cast<ptrdiff_t>(size)}), Outcome::loaded)
            << size;
}

INSTANTIATE_TEST_SUITE_P(Images, MutationTest, testing::ValuesIn(subjects),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(MutatorTest, TheSameSeedIsTheSameDamage) {
    const std::vector<uint8_t> intact = bytes_of("classes");
    Mutator one(intact), other(intact);
    one.mutated(3);
    for (uint32_t seed = 0; seed < 20; ++seed) EXPECT_EQ(one.mutated(seed), other.mutated(seed)) << seed;
    EXPECT_NE(one.mutated(1), one.mutated(2));
}

TEST(MutatorTest, EveryPartOfTheFormatIsGoneFor) {
    std::vector<std::string> names;
    for (const auto& region : loader_test::regions_of(bytes_of("classes"))) names.push_back(region.name);
    for (const char* part :
         {"header", "load command", "segment", "section row", "fix-ups", "symbols", "symbol names",
          "__objc_classlist", "__objc_const", "__objc_data", "__objc_selrefs", "__objc_methname", "__cstring",
          "__objc_ivar", "__unwind_info"})
        EXPECT_NE(std::ranges::find(names, part), names.end()) << part;
}

}  // namespace
