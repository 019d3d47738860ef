// What the initializers cost at the start of a process, against reading and parsing the same files alone.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "ratio.h"
#include "support/themes.h"

namespace bench {

namespace {

double processor_seconds() {
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void read_and_parse(const char* device_path) {
    NSData* bytes = NSData::dataWithContentsOfFile(test::text(device_path));
    if (!NSPropertyListSerialization::propertyListWithData(bytes, NSPropertyListSerialization::immutable, nullptr,
                                                           nullptr))
        std::abort();
}

/// The seconds that a child process measured.
template <class Measure>
double in_child(Measure measure) {
    int ends[2];
    if (pipe(ends)) std::abort();
    if (pid_t child = fork(); child == 0) {
        double seconds = measure();
        _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
    }
    close(ends[1]);
    double seconds = 0;
    if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds) std::abort();
    close(ends[0]);
    int status;
    wait(&status);
    return seconds;
}

double initializers(bool theme) {
    test::Phone phone;
    if (theme)
        test::arrange_theme(phone);
    else
        phone.write(test::preference_file, test::property_list("<dict><key>_Enabled</key><false/></dict>"));
    phone.boot();
    sim_library* library = nullptr;
    double seconds = 0;
    if (sim_load(HUECRAFT_DYLIB, &library) || sim_initialiser_time(library, &seconds)) {
        std::fprintf(stderr, "%s\n", sim_last_error());
        std::abort();
    }
    return seconds;
}

double files_alone(bool theme) {
    test::Phone phone;
    if (theme)
        test::arrange_theme(phone);
    else
        phone.write(test::preference_file, test::property_list("<dict><key>_Enabled</key><false/></dict>"));
    phone.boot();
    const double before = processor_seconds();
    read_and_parse(test::preference_file);
    if (theme) read_and_parse((std::string(test::theme_folder) + "Meadow.plist").c_str());
    return processor_seconds() - before;
}

void measure(Ratio& ratio, bool theme) {
    constexpr int runs = 41;
    std::vector<double> ours, alone;
    for (int i = 0; i < runs; ++i) {
        ours.push_back(in_child([&] { return initializers(theme); }));
        alone.push_back(in_child([&] { return files_alone(theme); }));
    }
    std::sort(ours.begin(), ours.end());
    std::sort(alone.begin(), alone.end());
    ratio.cost = ours[runs / 2];
    ratio.cost_against = alone[runs / 2];
}

}  // namespace

void measure_startup(std::vector<Ratio>& ratios) {
    Ratio off{.what = "both initializers, theming off", .against = "reading and parsing the preferences", .limit = 1.2};
    measure(off, false);
    ratios.push_back(off);
    Ratio on{.what = "both initializers, theming on", .against = "reading and parsing preferences and theme", .limit = 1.3};
    measure(on, true);
    ratios.push_back(on);
}

}  // namespace bench
