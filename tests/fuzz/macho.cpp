// Any bytes as a Mach-O image: its structure judged, loaded, and its classes read. Begins with the loader
// tests' images.
#include <algorithm>
#include <cstdint>
#include <span>

#include "loader/error.h"
#include "loader/fault.h"
#include "loader/format/layout.h"
#include "loader/format/slice.h"
#include "loader/image.h"
#include "loader/objc/objc_metadata.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t largest);

// Resolves everything: what is behind a name does not matter to an image that is not run.
static void* anything(const macho::Import&) {
    static char somewhere[64];
    return somewhere;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    for (const macho::Rules& rules : {macho::Rules{.signature = false}, {.structure = false}}) try {
            const macho::Bytes slice = macho::choose_slice({{data, size}, "the file"}, macho::kThisCpu);
            macho::Layout layout = macho::read_layout(slice);
            macho::hold_to(rules, slice, layout);
        } catch (const macho::Fault&) {
        }
    try {
        const macho::Image image =
            macho::Image::load_bytes({data, size}, "fuzzed.dylib", anything, macho::no_rules());
        macho::read_objc_metadata(image);
    } catch (const macho::Error&) {
    } catch (const macho::Fault&) {  // which import_classes would have given the file's name
    }
    return 0;
}

// An image is mostly padding, and offsets break when its size changes. So a short window that holds something
// is changed in place, except now and then.
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t largest, unsigned int seed) {
    if (size < 64 || seed % 16 == 0) return LLVMFuzzerMutate(data, size, largest);
    uint64_t state = seed;
    const auto next = [&state] {
        return state = state * 6364136223846793005 + 1442695040888963407, state >> 33;
    };
    size_t at = 0;
    for (int tries = 0; tries < 50; ++tries) {
        at = next() % size;
        if (data[at] != 0) break;
    }
    const size_t window = std::min<size_t>(size - at, 1 + next() % 16);
    LLVMFuzzerMutate(data + at, window, window);
    return size;
}
