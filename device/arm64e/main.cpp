// arm64e_slice <arm64 slice> <arm64e slice>: makes an arm64e slice of a linked arm64 slice, which is to be
// signed again. docs/arm64e.md
#include <cstdio>
#include <fstream>
#include <iterator>

#include "arm64e/comparison.h"
#include "arm64e/conversion.h"
#include "loader/fault.h"

namespace {

arm64e::Data contents_of(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) macho::refuse("it cannot be opened");
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: arm64e_slice <arm64 slice> <arm64e slice>\n", stderr);
        return 2;
    }
    try {
        const arm64e::Data arm64_slice = contents_of(arguments[1]);
        const arm64e::Data slice = arm64e::convert(arm64_slice).slice;
        arm64e::compare(arm64_slice, slice);
        std::ofstream file(arguments[2], std::ios::binary);
        file.write(reinterpret_cast<const char*>(slice.data()), static_cast<std::streamsize>(slice.size()));
        if (!file.flush()) macho::refuse(std::string("cannot write ") + arguments[2]);
    } catch (const macho::Fault& fault) {
        std::fprintf(stderr, "arm64e_slice: %s: %s\n", arguments[1], fault.what());
        return 1;
    }
}
