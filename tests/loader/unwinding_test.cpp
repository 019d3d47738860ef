// Exceptions and backtraces through the frames of an image.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unwind.h>

#include <map>
#include <stdexcept>

#include "draft.h"
#include "host.h"
#include "loader/fault.h"
#include "loader/unwinding/unwind_info.h"
#include "objc/runtime.h"

extern "C" [[noreturn]] void objc_exception_throw(id exception);

namespace {

using loader_test::Draft;
using loader_test::function;
using loader_test::load;
using macho::Image;
using testing::AllOf;
using testing::HasSubstr;

using Callback = void();

struct Surprise {};
void throw_cpp() { throw Surprise(); }
void throw_objc() { objc_exception_throw(reinterpret_cast<id>(objc_lookUpClass("NSObject"))); }
void do_nothing() {}

/// Whether the call ends with an exception of any language.
template <class Call>
bool throws(Call call) {
    try {
        call();
        return false;
    } catch (...) {
        return true;
    }
}

/// The unwind encoding of the code at an exported function.
uint32_t encoding_of(const Image& image, const std::string& name) {
    const macho::Section* section = image.layout().section("__unwind_info");
    const uintptr_t wanted = reinterpret_cast<uintptr_t>(image.symbol(name)) -
                             image.mapping().address_of(image.layout().header_address);
    for (const auto& entry :
         macho::read_unwind_info(image.mapping().read(*section, "the pages"), ~uint32_t{0}))
        if (wanted >= entry.start && wanted < entry.end) return entry.encoding;
    return 0;
}

uint32_t mode_of(const Image& image, const std::string& name) { return encoding_of(image, name) >> 24 & 0xf; }

#if defined(__x86_64__)
constexpr uint32_t kFramed = 1, kFrameless = 2, kLarge = 3, kDwarf = 4;
#else
constexpr uint32_t kFramed = 4, kDwarf = 3;
#endif

/// The same functions with and without a frame pointer.
class CleanupTest : public testing::TestWithParam<const char*> {
  protected:
    Image image = load(GetParam());
    int cleanups = 0;
};

TEST_P(CleanupTest, CleanupsRunWithoutAnException) {
    function<void(Callback*, int*)>(image, "frames_with_cleanups")(do_nothing, &cleanups);
    EXPECT_EQ(cleanups, 2);
}

TEST_P(CleanupTest, ACppExceptionOfTheHostRunsThem) {
    EXPECT_THROW(function<void(Callback*, int*)>(image, "frames_with_cleanups")(throw_cpp, &cleanups),
                 Surprise);
    EXPECT_EQ(cleanups, 2);
}

TEST_P(CleanupTest, AnObjcExceptionOfTheHostRunsThem) {
    EXPECT_TRUE(throws(
        [&] { function<void(Callback*, int*)>(image, "frames_with_cleanups")(throw_objc, &cleanups); }));
    EXPECT_EQ(cleanups, 2);
}

TEST_P(CleanupTest, OnlyThoseInForceRun) {
    static int calls;
    calls = 0;
    const auto throw_at_second_call = [] {
        if (++calls == 2) throw Surprise();
    };
    EXPECT_THROW(
        function<void(Callback*, int*)>(image, "frames_with_cleanups")(throw_at_second_call, &cleanups),
        Surprise);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(cleanups, 2);
}

TEST_P(CleanupTest, ALargeFrameIsUnwound) {
    EXPECT_THROW(function<void(Callback*, int*)>(image, "frames_large")(throw_cpp, &cleanups), Surprise);
    EXPECT_EQ(cleanups, 1);
}

TEST_P(CleanupTest, AFrameThatOnlyDwarfDescribesIsUnwound) {
    EXPECT_THROW(function<void(Callback*, int*)>(image, "frames_dwarf")(throw_cpp, &cleanups), Surprise);
    EXPECT_EQ(cleanups, 1);
}

TEST_P(CleanupTest, AFrameWithoutCleanupsIsPassed) {
    EXPECT_THROW(function<void(Callback*)>(image, "frames_without_cleanups")(throw_cpp), Surprise);
}

TEST_P(CleanupTest, TheImageCatchesWhatTheHostThrows) {
    const auto handler = function<int(Callback*)>(image, "frames_with_handler");
    EXPECT_EQ(handler(do_nothing), 0);
    EXPECT_EQ(handler(throw_cpp), 1);
}

TEST_P(CleanupTest, ExceptionsPassThroughTwoImages) {
    static const Image* inner;
    static int inner_cleanups;
    const Image other = load("bare_frames");
    inner = &other;
    inner_cleanups = 0;
    const auto call_inner = [] {
        function<void(Callback*, int*)>(*inner, "bare_frames")(throw_cpp, &inner_cleanups);
    };
    EXPECT_THROW(function<void(Callback*, int*)>(image, "frames_with_cleanups")(call_inner, &cleanups),
                 Surprise);
    EXPECT_EQ(inner_cleanups, 0) << "it is built without exceptions";
    EXPECT_EQ(cleanups, 2);
}

INSTANTIATE_TEST_SUITE_P(Frames, CleanupTest, testing::Values("frames", "frameless"),
                         [](const auto& info) { return std::string(info.param); });

TEST(UnwindingTest, ExceptionsWorkOnAfterAnImageIsGone) {
    load("frames");
    EXPECT_TRUE(throws(throw_cpp));
}

// What the compiler made of the functions above, so that these tests cannot come to test something else.
#if defined(__x86_64__)
TEST(UnwindingTest, TheImagesHaveFramesOfEveryKind) {
    const Image framed = load("frames"), frameless = load("frameless"), registers = load("registers");
    EXPECT_EQ(mode_of(framed, "frames_with_cleanups"), kFramed);
    EXPECT_EQ(mode_of(framed, "frames_dwarf"), kDwarf);
    EXPECT_EQ(mode_of(frameless, "frames_with_cleanups"), kFrameless);
    EXPECT_EQ(mode_of(frameless, "frames_large"), kLarge);
    EXPECT_EQ(mode_of(frameless, "frames_dwarf"), kDwarf);
    EXPECT_EQ(mode_of(registers, "registers_framed"), kFramed);
    EXPECT_EQ(mode_of(registers, "registers_frameless_six"), kFrameless);
    EXPECT_EQ(mode_of(registers, "registers_frameless_three"), kFrameless);
    EXPECT_EQ(mode_of(registers, "registers_frameless_large"), kLarge);
    EXPECT_EQ(mode_of(registers, "registers_dwarf"), kDwarf);
}
#else
TEST(UnwindingTest, TheImagesHaveFramesOfEveryKind) {
    const Image framed = load("frames"), registers = load("registers");
    EXPECT_EQ(mode_of(framed, "frames_with_cleanups"), kFramed);
    EXPECT_EQ(mode_of(framed, "frames_dwarf"), kDwarf);
    EXPECT_EQ(mode_of(registers, "registers_framed"), kFramed);
    EXPECT_EQ(mode_of(registers, "registers_dwarf"), kDwarf);
}
#endif

/// The registers as they are seen in the frame of registers_holder, from deeper down the stack.
class RegistersTest : public testing::TestWithParam<const char*> {
  protected:
    struct Seen {
        uintptr_t from, to;  // the holder's code
        std::map<int, uintptr_t> values;
        bool host_reached = false;
    };
    static Seen seen;

#if defined(__x86_64__)
    static std::map<int, uintptr_t> held() {
        return {{3, 0x1b}, {12, 0x12}, {13, 0x13}, {14, 0x14}, {15, 0x15}};
    }
#else
    static std::map<int, uintptr_t> held() {
        std::map<int, uintptr_t> values = {{19, 0x19}, {20, 0x20}, {21, 0x21}, {22, 0x22}, {23, 0x23},
                                           {24, 0x24}, {25, 0x25}, {26, 0x26}, {27, 0x27}, {28, 0x28}};
        for (int i = 8; i <= 15; ++i) values[64 + i] = std::bit_cast<uintptr_t>(double(i));
        return values;
    }
#endif

    static void look() {
        const auto look_at_frame = [](_Unwind_Context* frame, void*) {
            const uintptr_t at = _Unwind_GetIP(frame);
            if (!seen.values.empty()) seen.host_reached = true;
            if (at >= seen.from && at < seen.to)
                for (const auto& [number, value] : held()) seen.values[number] = _Unwind_GetGR(frame, number);
            return _URC_NO_REASON;
        };
        _Unwind_Backtrace(look_at_frame, nullptr);
    }
};

RegistersTest::Seen RegistersTest::seen;

TEST_P(RegistersTest, AreRestoredFromTheFrame) {
    const Image image = load("registers");
    seen = {.from = reinterpret_cast<uintptr_t>(image.symbol("registers_holder")),
            .to = reinterpret_cast<uintptr_t>(image.symbol("registers_framed")),
            .values = {}};
    using Overwriter = void(Callback*);
    function<void(Callback*, Overwriter*)>(image, "registers_holder")(
        look, function<Overwriter>(image, GetParam()));
    EXPECT_EQ(seen.values, held());
    EXPECT_TRUE(seen.host_reached);
}

#if defined(__x86_64__)
INSTANTIATE_TEST_SUITE_P(Frames, RegistersTest,
                         testing::Values("registers_framed", "registers_frameless_six",
                                         "registers_frameless_three", "registers_frameless_large",
                                         "registers_dwarf"),
                         [](const auto& info) { return std::string(info.param); });
#else
INSTANTIATE_TEST_SUITE_P(Frames, RegistersTest, testing::Values("registers_framed", "registers_dwarf"),
                         [](const auto& info) { return std::string(info.param); });
#endif

/// Damaged unwind information. Offsets are those within the section.
class DamagedUnwindingTest : public testing::Test {
  protected:
    Draft frames{"frames"};
    size_t pages = frames.content("__unwind_info");
    size_t index = pages + frames.u32(pages + 20);
    size_t lsdas = pages + frames.u32(index + 8);

    Draft dwarf{"registers"};
    size_t entries = dwarf.content("__eh_frame");
    size_t entry = entries + 4 + dwarf.u32(entries);  // the first function's, behind the common one
    std::string entry_offset = macho::hex(entry - entries);

    void SetUp() override {
        ASSERT_EQ(frames.load_error(), "");
        ASSERT_EQ(dwarf.load_error(), "");
    }
};

TEST_F(DamagedUnwindingTest, AFrameOutsideTheCodeIsRefused) {
    const size_t last = index + 12 * (frames.u32(pages + 24) - 1);
    frames.set32(frames.segment("__LINKEDIT") + 60,
                 5);  // so that there is code on both sides of what is none
    frames.set32(last, static_cast<uint32_t>(frames.u64(frames.segment("__DATA") + 24)) + 8);
    EXPECT_THAT(frames.load_error(), AllOf(HasSubstr("__unwind_info describes what is not code (found 0x"),
                                           HasSubstr(" bytes at 0x")));
}

TEST_F(DamagedUnwindingTest, ADescriptionBeyondTheCodeIsRefused) {
    const size_t last = index + 12 * (frames.u32(pages + 24) - 1);
    frames.set32(last, 0x10000);
    EXPECT_THAT(frames.load_error(),
                HasSubstr("__unwind_info leaves the code (found 0x10000, expected at most 0x"));
}

TEST_F(DamagedUnwindingTest, ACleanupTableOutsideTheImageIsRefused) {
    frames.set32(lsdas + 4, 0x7fffff00);
    EXPECT_THAT(frames.load_error(),
                HasSubstr("a function's LSDA lies outside the image (found 0x7fffff00)"));
}

TEST_F(DamagedUnwindingTest, APersonalityOutsideTheImageIsRefused) {
    frames.set32(pages + frames.u32(pages + 12), 0x7fffff00);
    EXPECT_THAT(frames.load_error(),
                HasSubstr("a personality pointer lies outside the image (found 8 bytes at 0x7fffff00)"));
}

TEST_F(DamagedUnwindingTest, ASectionThatIsCutShortIsRefused) {
    frames.set64(frames.section("__unwind_info") + 40, 16);
    EXPECT_THAT(frames.load_error(), HasSubstr("a read leaves __unwind_info"));
}

TEST_F(DamagedUnwindingTest, DwarfThatIsNotThereIsRefused) {
    dwarf.set_text(dwarf.section("__eh_frame"), "__other");
    EXPECT_THAT(dwarf.load_error(),
                HasSubstr("has its frame described by DWARF, but there is no __eh_frame"));
}

TEST_F(DamagedUnwindingTest, AnEntryOutsideItsSectionIsRefused) {
    dwarf.set32(entry, 0x7ffffff0);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("a read leaves __eh_frame"));
}

TEST_F(DamagedUnwindingTest, AnEntryAboutOtherCodeIsRefused) {
    dwarf.set64(entry + 8, dwarf.u64(entry + 8) + 1);
    EXPECT_THAT(dwarf.load_error(),
                AllOf(HasSubstr("__eh_frame's entry at " + entry_offset + " is about the code at 0x"),
                      HasSubstr(" (expected 0x")));
}

TEST_F(DamagedUnwindingTest, ACommonEntryInPlaceOfAFunctionsIsRefused) {
    dwarf.set32(entry + 4, 0);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("__eh_frame has no function's entry at " + entry_offset));
}

TEST_F(DamagedUnwindingTest, AFunctionsEntryInPlaceOfACommonOneIsRefused) {
    dwarf.set32(entries + 4, 7);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("__eh_frame's entry at 0x0 has id 0x7 (expected 0)"));
}

TEST_F(DamagedUnwindingTest, ACommonEntryOutsideTheSectionIsRefused) {
    dwarf.set32(entry + 4, 0x1000);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("a read leaves __eh_frame"));
}

TEST_F(DamagedUnwindingTest, ALongFormOfLengthIsRefused) {
    dwarf.set32(entry, 0xffffffff);
    EXPECT_THAT(dwarf.load_error(),
                HasSubstr("__eh_frame's entry at " + entry_offset + " has a 64-bit length"));
}

TEST_F(DamagedUnwindingTest, AnotherVersionIsRefused) {
    dwarf.set8(entries + 8, 4);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("__eh_frame's entry at 0x0 has version 4 (expected 1)"));
}

TEST_F(DamagedUnwindingTest, AnUnknownAugmentationIsRefused) {
    dwarf.set_text(entries + 9, "zX");
    EXPECT_THAT(dwarf.load_error(),
                HasSubstr("__eh_frame has the augmentation \"zX\" (expected z and any of RLP)"));
    dwarf.set_text(entries + 9, "eh");
    EXPECT_THAT(dwarf.load_error(),
                HasSubstr("__eh_frame has the augmentation \"eh\" (expected z and any of RLP)"));
}

TEST_F(DamagedUnwindingTest, AnUnknownPointerEncodingIsRefused) {
    const size_t encoding = entries + 9 + 3 + 4;  // behind "zR", two alignments, a register and a length
    ASSERT_EQ(dwarf.u32(encoding) & 0xff, 0x10u);
    dwarf.set8(encoding, 0x12);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("__eh_frame has the unknown pointer encoding 0x12"));
    dwarf.set8(encoding, 0x30);
    EXPECT_THAT(dwarf.load_error(), HasSubstr("__eh_frame has the unknown pointer encoding 0x30"));
}

}  // namespace
