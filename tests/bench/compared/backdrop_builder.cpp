// Builds a hundred backdrop views in one of the ways, for callgrind to count what that takes.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "backdrop_phone.h"
#include "objc/string.h"

int main(int argc, char** argv) {
    using bench::Background;
    constexpr struct {
        const char* name;
        objc::strong<UIKBBackdropView> (*build_one)();
        void (*build)();
    } ways[] = {{"themed", bench::themed_view, bench::build_themed_views},
                {"by_hand", bench::view_themed_by_hand, bench::build_views_by_hand},
                {"must_be", bench::view_themed_by_hand_with_what_must_be,
                 bench::build_views_by_hand_with_what_must_be},
                {"least", bench::view_themed_with_the_least, bench::build_views_with_the_least},
                {"unthemed", bench::unthemed_view, bench::build_unthemed_views}};
    objc::adopt_strings();
    if (argc == 3 || argc == 4)
        for (const auto& [name, build_one, build] : ways)
            if (std::strcmp(argv[2], name) == 0) {
                const bool flat = std::strcmp(argv[1], "flat") == 0;
                const bench::BackdropPhone phone(flat ? Background::flat : Background::gradient);
                if (argc == 4) bench::know_sends(std::strtoul(argv[3], nullptr, 10));
                for (int i = 0; i < 100; ++i) {  // so that every cache is filled, and memory is at hand
                    objc::AutoreleasePool pool;
                    build_one();
                }
                build();
                return 0;
            }
    std::fprintf(stderr, "usage: %s flat|gradient themed|by_hand|must_be|least|unthemed [<sends>]\n",
                 argv[0]);
    return 2;
}
