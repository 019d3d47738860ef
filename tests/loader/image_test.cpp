// Loading: fix-ups, binding, exports, initialisers, and the life of an image.
#include "loader/image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "draft.h"
#include "host.h"

extern "C" int host_table[4];

namespace {

using loader_test::Draft;
using loader_test::function;
using loader_test::host_symbol;
using loader_test::image_path;
using loader_test::load;
using loader_test::message_of;
using loader_test::variable;
using macho::BindTable;
using macho::Error;
using macho::Image;
using macho::Import;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string error_loading(const std::filesystem::path& path) {
    return message_of<Error>([&] { Image::load(path, host_symbol); });
}

TEST(ImageTest, FunctionsRunAndCallTheHost) {
    const Image image = load("plain");
    EXPECT_EQ(function<int(int, int)>(image, "plain_sum")(2, 3), 5);
}

TEST(ImageTest, PointersIntoTheImageMoveWithIt) {
    const Image image = load("plain");
    int** numbers = variable<int*>(image, "plain_numbers");
    EXPECT_EQ(*numbers[0], 10);
    EXPECT_EQ(*numbers[2], 30);
    EXPECT_STREQ(*variable<const char*>(image, "plain_text"), "some text");
}

TEST(ImageTest, TwoLoadsAreTwoImages) {
    const Image one = load("plain"), other = load("plain");
    variable<int*>(one, "plain_numbers")[0][0] = 11;
    EXPECT_EQ(*variable<int*>(other, "plain_numbers")[0], 10);
}

TEST(ImageTest, BoundPointersHaveTheirAddend) {
    const Image image = load("plain");
    EXPECT_EQ(*variable<int*>(image, "plain_third_entry"), &host_table[2]);
}

TEST(ImageTest, RepeatedFixupsReachEveryRow) {
    struct Row {
        long number;
        int* own;
        int* hosts;
    };
    const Image image = load("plain");
    const Row* rows = variable<Row>(image, "plain_rows");
    const int* own = variable<int*>(image, "plain_numbers")[1];
    for (int i = 0; i < 32; ++i) {
        EXPECT_EQ(rows[i].number, 1) << i;
        EXPECT_EQ(rows[i].own, own) << i;
        EXPECT_EQ(rows[i].hosts, &host_table[1]) << i;
    }
}

TEST(ImageTest, ZeroFilledVariablesAreZeroAndWritable) {
    const Image image = load("plain");
    int* zeros = variable<int>(image, "plain_zeros");
    EXPECT_EQ(std::count(zeros, zeros + 10000, 0), 10000);
    zeros[9999] = 1;
    EXPECT_EQ(zeros[9999], 1);
}

TEST(ImageTest, ExportsAreNamedAsInC) {
    const Image image = load("plain");
    std::vector<std::string> names;
    for (const auto& [name, address] : image.exports()) {
        names.push_back(name);
        EXPECT_EQ(image.symbol(name), address);
        EXPECT_TRUE(image.mapping().contains(reinterpret_cast<uintptr_t>(address))) << name;
    }
    EXPECT_THAT(names, ElementsAre("plain_extra", "plain_numbers", "plain_rows", "plain_sum", "plain_text",
                                   "plain_third_entry", "plain_zeros"));
    EXPECT_EQ(image.symbol("_plain_sum"), nullptr);
    EXPECT_EQ(image.symbol("plain"), nullptr);
}

TEST(ImageTest, TheResolverIsAskedOnceForEachImport) {
    std::vector<std::string> asked;
    Image::load(image_path("plain"), [&](const Import& import) {
        asked.push_back(import.symbol + (import.weak ? " weak from " : " from ") + import.install_name);
        EXPECT_EQ(import.target, nullptr);
        return host_symbol(import);
    });
    EXPECT_THAT(asked, UnorderedElementsAre("host_table from /test/libhost.dylib",
                                            "host_add from /test/libhost.dylib",
                                            "host_extra weak from /test/libhost.dylib"));
}

TEST(ImageTest, WhereAnySymbolWillDoNoLibraryIsNamed) {
    std::vector<std::string> libraries;
    Image::load(image_path("shared"), [&](const Import& import) {
        libraries.push_back(import.install_name);
        return nullptr;
    });
    EXPECT_THAT(libraries, testing::Each(""));
    EXPECT_THAT(libraries, Not(IsEmpty()));
}

TEST(ImageTest, BindsSayWhatWasBoundWhere) {
    const Image image = load("plain");
    unsigned lazy = 0, with_addend = 0;
    for (const macho::Bind& bind : image.binds()) {
        const Import& import = image.imports().at(bind.import);
        const auto target = reinterpret_cast<uintptr_t>(import.target);
        EXPECT_EQ(*reinterpret_cast<uintptr_t*>(bind.slot), target ? target + bind.addend : 0)
            << import.symbol;
        lazy += bind.table == BindTable::lazy && import.symbol == "host_add";
        with_addend += import.symbol == "host_table" && bind.addend == 8;
    }
    EXPECT_EQ(lazy, 1u);
    EXPECT_EQ(with_addend, 1u);
}

TEST(ImageTest, AMissingWeakImportIsNullAndReported) {
    const Image image = load("plain");
    EXPECT_THAT(image.missing(), ElementsAre("host_extra"));
    EXPECT_EQ(function<int()>(image, "plain_extra")(), -1);
}

TEST(ImageTest, AWeakImportThatExistsIsUsed) {
    const Image image = Image::load(image_path("plain"), [](const Import& import) -> void* {
        static int (*const extra)() = [] { return 7; };
        return import.symbol == "host_extra" ? reinterpret_cast<void*>(extra) : host_symbol(import);
    });
    EXPECT_THAT(image.missing(), IsEmpty());
    EXPECT_EQ(function<int()>(image, "plain_extra")(), 7);
}

TEST(ImageTest, AllMissingSymbolsAreNamedAtOnce) {
    const std::string message = error_loading(image_path("missing"));
    EXPECT_THAT(message, HasSubstr("missing.dylib: cannot load: 3 symbols are missing: "));
    for (const char* name : {"nobodys_function", "nobodys_other_function", "nobodys_variable"})
        EXPECT_THAT(message, HasSubstr(name));
    EXPECT_THAT(message, Not(HasSubstr("host_add")));
}

TEST(ImageTest, AMissingSymbolIsNamedWithItsLibrary) {
    EXPECT_EQ(message_of<Error>([] {
                  Image::load(image_path("plain"), [](const Import& import) {
                      return import.symbol == "host_add" ? nullptr : host_symbol(import);
                  });
              }),
              "plain.dylib: cannot load: 1 symbol is missing: host_add (from /test/libhost.dylib)");
}

TEST(ImageTest, WhatTheResolverThrowsComesThrough) {
    EXPECT_THROW(Image::load(image_path("plain"), [](const Import&) -> void* { throw 5; }), int);
}

TEST(ImageTest, TheImagesOwnDefinitionIsUsedWhereTheHostHasNone) {
    const Image image = load("shared");
    EXPECT_EQ(function<int()>(image, "shared_call")(), 1);
}

TEST(ImageTest, TheHostsDefinitionReplacesTheImages) {
    const Image image = Image::load(image_path("shared"), [](const Import& import) -> void* {
        static int (*const answer)() = [] { return 2; };
        return import.symbol == "shared_answer" ? reinterpret_cast<void*>(answer) : host_symbol(import);
    });
    EXPECT_EQ(function<int()>(image, "shared_call")(), 2);
}

TEST(ImageTest, ADefinitionThatIsNotExportedStays) {
    const Image intact = load("shared");
    const uintptr_t call =
        reinterpret_cast<uintptr_t>(intact.symbol("shared_call")) - intact.mapping().slide();
    const Image image = Draft("shared").set_table(Draft::exports, {0, 0}).load();
    EXPECT_EQ(reinterpret_cast<int (*)()>(image.mapping().address_of(call))(), 1);
}

TEST(ImageTest, ASymbolOfTheImagesOwnIsFoundThere) {
    Draft draft("plain");
    const size_t text = draft.content("__data");  // of which any pointer will do
    const auto offset = static_cast<uint8_t>(text - draft.u64(draft.segment("__DATA") + 40));
    ASSERT_LT(offset, 0x80);
    //                                 itself  symbol                              pointer  segment bind
    draft.set_table(Draft::bind, {0x10, 0x40, '_', 'p', 'l', 'a', 'i', 'n', '_', 's', 'u', 'm', 0, 0x51, 0x71,
                                  offset, 0x90});
    bool asked = false;
    const auto resolve = [&](const Import& import) {
        asked |= import.symbol == "plain_sum";
        return host_symbol(import);
    };
    const Image image = Image::load_bytes(draft.bytes(), "plain.dylib", resolve, macho::no_rules());
    EXPECT_EQ(image.mapping().read_pointer(image.binds().front().slot, "the pointer"),
              reinterpret_cast<uintptr_t>(image.symbol("plain_sum")));
    EXPECT_FALSE(asked);
}

TEST(ImageTest, ASymbolThatTheImageItselfLacksIsMissing) {
    Draft draft("plain");
    draft.set_table(Draft::bind, {0x10, 0x40, '_', 'f', 0, 0x51, 0x71, 0x00, 0x90});
    EXPECT_EQ(draft.load_error(), "plain.dylib: cannot load: 1 symbol is missing: f");
}

TEST(ImageTest, InitialisersRunInOrderAndOnce) {
    loader_test::notes.clear();
    Image image = load("initialisers");
    EXPECT_THAT(loader_test::notes, IsEmpty());
    image.run_initialisers();
    EXPECT_THAT(loader_test::notes, ElementsAre(1, 2));
    image.run_initialisers();
    EXPECT_THAT(loader_test::notes, ElementsAre(1, 2));
}

TEST(ImageTest, AnInitialiserThatIsNotCodeIsRefused) {
    Draft draft("initialisers");
    draft.set64(draft.content("__mod_init_func"), draft.u64(draft.section("__data") + 32));
    EXPECT_THAT(
        draft.load_error(),
        HasSubstr("section __mod_init_func lists an initialiser that is not code of the image (found 0x"));
}

TEST(ImageTest, AListOfInitialisersWithAnOddSizeIsRefused) {
    Draft draft("initialisers");
    draft.set64(draft.section("__mod_init_func") + 40, 12);
    EXPECT_THAT(draft.load_error(),
                HasSubstr("section __mod_init_func has 12 bytes (expected a multiple of 8)"));
}

TEST(ImageTest, CodeIsNotWritableAndDataCannotRun) {
    const Image image = load("plain");
    std::ifstream maps("/proc/self/maps");
    const auto code = reinterpret_cast<uintptr_t>(image.symbol("plain_sum"));
    const auto data = reinterpret_cast<uintptr_t>(image.symbol("plain_zeros"));
    std::string code_access, data_access;
    for (std::string line; std::getline(maps, line);) {
        uintptr_t start, end;
        char access[5];
        ASSERT_EQ(std::sscanf(line.c_str(), "%lx-%lx %4s", &start, &end, access), 3);
        if (code >= start && code < end) code_access = access;
        if (data >= start && data < end) data_access = access;
    }
    EXPECT_EQ(code_access, "r-xp");
    EXPECT_EQ(data_access, "rw-p");
}

bool is_mapped(const void* address) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        uintptr_t start = 0, end = 0;
        std::sscanf(line.c_str(), "%lx-%lx", &start, &end);
        const auto wanted = reinterpret_cast<uintptr_t>(address);
        if (wanted >= start && wanted < end) return true;
    }
    return false;
}

TEST(ImageTest, AnImageIsUnmappedWithItsObject) {
    const void* address;
    {
        const Image image = load("plain");
        address = image.symbol("plain_sum");
        EXPECT_TRUE(is_mapped(address));
    }
    EXPECT_FALSE(is_mapped(address));
}

TEST(ImageTest, AnImageWhoseInitialisersRanStaysMapped) {
    const void* address;
    {
        Image image = load("plain");
        image.run_initialisers();
        address = image.symbol("plain_sum");
    }
    EXPECT_TRUE(is_mapped(address));
}

TEST(ImageTest, AnImageMayBeMoved) {
    Image image = load("plain");
    const Image moved = std::move(image);
    EXPECT_EQ(function<int(int, int)>(moved, "plain_sum")(2, 3), 5);
}

TEST(ImageTest, AFileThatDoesNotExistIsNamedWithItsPath) {
    EXPECT_EQ(error_loading("/nowhere/Theme.dylib"),
              "Theme.dylib: cannot load: cannot read /nowhere/Theme.dylib: No such file or directory");
}

TEST(ImageTest, AFolderIsRefused) {
    EXPECT_THAT(error_loading(LOADER_TEST_IMAGES), HasSubstr("images: cannot load: cannot read "));
}

TEST(ImageTest, AnEmptyFileIsRefused) {
    const auto path =
        std::filesystem::temp_directory_path() / ("empty-" + std::to_string(getpid()) + ".dylib");
    std::ofstream(path).flush();
    EXPECT_THAT(error_loading(path),
                HasSubstr(": cannot load: not a Mach-O file (found an empty file, expected cf fa ed fe)"));
    std::filesystem::remove(path);
}

TEST(ImageTest, AnEnormousFileIsRefusedUnread) {
    const auto path =
        std::filesystem::temp_directory_path() / ("huge-" + std::to_string(getpid()) + ".dylib");
    std::ofstream(path).flush();
    std::filesystem::resize_file(path, uintmax_t{1} << 40);
    EXPECT_THAT(error_loading(path),
                HasSubstr("too large (found 1099511627776 bytes, expected at most 268435456)"));
    std::filesystem::remove(path);
}

}  // namespace
