// What the initialisers cost at the start of a process, against reading and parsing the same files alone.
//
// Every figure comes from processes of their own, forked before anything of the phone exists, so that all of
// it is used for the first time: on the device, too, the library is loaded into a process that has only
// begun. Both sides boot the same phone over the same files, load the same library and work in a pool of
// their own. On the side that only reads, the process claims to have no arguments: there the set-up stops at
// its first question, the library's classes and selectors are known as they are on the other side, and no
// file has been read.
//
// Most of what such a process spends on its first property list is Foundation putting its own classes
// together. The rows without a limit leave that out: another list was parsed before, and what remains is the
// reading of very small files, beside which a few look-ups weigh much.
#include <string>

#include "measuring/check.h"
#include "measuring/child.h"
#include "measuring/instructions.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "support/themes.h"

namespace bench {

using namespace objc::literals;

namespace {

enum class Theming { off, on };
enum class Foundation { fresh, has_parsed };

void parse(NSData* bytes) {
    check(NSPropertyListSerialization::propertyListWithData(bytes, NSPropertyListSerialization::immutable,
                                                            nullptr, nullptr),
          "the property list is parsed");
}

/// A phone with the library loaded.
class LoadedPhone {
  public:
    LoadedPhone(Theming theming, Foundation foundation, sim_arguments arguments) {
        if (theming == Theming::on)
            test::arrange_theme(phone_);
        else
            phone_.write(test::preference_file,
                         test::property_list("<dict><key>_Enabled</key><false/></dict>"));
        phone_.boot({.arguments = arguments});
        if (foundation == Foundation::has_parsed) parse(test::data(test::property_list("<dict/>")));
        phone_.load();
        check(phone_.loaded_library(), "the library is loaded");
    }
    double initializer_seconds() const {
        double seconds = 0;
        check(sim_initialiser_time(phone_.loaded_library(), &seconds) == SIM_OK,
              "the initialisers were timed");
        return seconds;
    }

  private:
    test::Phone phone_;
};

double initialisers(Theming theming, Foundation foundation) {
    const LoadedPhone phone(theming, foundation, SIM_ARGUMENTS_EXECUTABLE);
    // The first row and the named-colour hook; with theming on, the whole table.
    check(sim_installing_call_count() == (theming == Theming::on ? 45 : 2), "the hooks are installed");
    return phone.initializer_seconds();
}

double files_alone(Theming theming, Foundation foundation) {
    const LoadedPhone phone(theming, foundation, SIM_ARGUMENTS_NONE);
    check(sim_installing_call_count() == 1, "the set-up stopped at once");
    processor_seconds();  // the first time that it is asked, the clock itself takes microseconds
    const double before = processor_seconds();
    {
        objc::AutoreleasePool pool;
        parse(NSData::dataWithContentsOfFile(
            "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist"_ns));
        if (theming == Theming::on)
            parse(NSData::dataWithContentsOfFile(
                "/var/mobile/Library/Preferences/HuecraftConfiguration/Meadow.plist"_ns));
    }
    return processor_seconds() - before;
}

/// The seconds that a process of its own measures.
double in_child(double (*measure)(Theming, Foundation), Theming theming, Foundation foundation) {
    return bench::in_child(1, [=] { return std::vector{measure(theming, foundation)}; })[0];
}

/// What it takes to load a build: map it, bind it, make its classes and run its initialisers, which find
/// theming off.
double loading(const char* library) {
    setenv("HUECRAFT_LIBRARY", library, 1);
    test::Phone phone;
    phone.write(test::preference_file, test::property_list("<dict><key>_Enabled</key><false/></dict>"));
    phone.boot();
    processor_seconds();
    const double before = processor_seconds();
    phone.load();
    const double seconds = processor_seconds() - before;
    check(phone.loaded_library(), "the library is loaded");
    return seconds;
}

/// The instructions of the same.
size_t instructions_of_loading(const std::string& library) {
    const test::Phone phone;
    phone.write(test::preference_file, test::property_list("<dict><key>_Enabled</key><false/></dict>"));
    return instructions_of(Work::loading, library, phone);
}

Ratio loading_compared(Ratio ratio) {
    constexpr int runs = 121;
    auto in_child = [](const char* library) {
        return bench::in_child(1, [=] { return std::vector{loading(library)}; })[0];
    };
    std::vector<double> costs, costs_against;
    for (int i = 0; i < runs; ++i) {
        costs.push_back(in_child(HUECRAFT_DYLIB));
        costs_against.push_back(in_child(HUECRAFT_SHARED_OBJECT));
    }
    ratio.cost = undisturbed(costs);
    ratio.cost_against = undisturbed(costs_against);
    ratio.counted =
        Counted{"instructions", instructions_of_loading(HUECRAFT_DYLIB),
                static_cast<size_t>(*ratio.limit *
                                    static_cast<double>(instructions_of_loading(HUECRAFT_COUNTED_LIBRARY)))};
    return ratio;
}

Ratio measured(Ratio ratio, Theming theming, Foundation foundation) {
    const int runs = ratio.limit ? 121 : 31;
    std::vector<double> costs, costs_against;
    for (int i = 0; i < runs; ++i) {
        costs.push_back(in_child(initialisers, theming, foundation));
        costs_against.push_back(in_child(files_alone, theming, foundation));
    }
    ratio.cost = undisturbed(costs);
    ratio.cost_against = undisturbed(costs_against);
    return ratio;
}

}  // namespace

void measure_startup(std::vector<Ratio>& ratios) {
    const char* preferences_alone = "reading and parsing the preferences";
    const char* both_files_alone = "reading and parsing preferences and theme";
    ratios.push_back(
        measured({.what = "both initialisers, theming off", .against = preferences_alone, .limit = 1.2},
                 Theming::off, Foundation::fresh));
    ratios.push_back(
        measured({.what = "both initialisers, theming on", .against = both_files_alone, .limit = 1.3},
                 Theming::on, Foundation::fresh));
    ratios.push_back(measured({.what = "  off, where a list was parsed before", .against = preferences_alone},
                              Theming::off, Foundation::has_parsed));
    ratios.push_back(measured({.what = "  on, where a list was parsed before", .against = both_files_alone},
                              Theming::on, Foundation::has_parsed));
    ratios.push_back(loading_compared(
        {.what = "loading the dylib, theming off", .against = "loading the ELF build", .limit = 1.3}));
}

}  // namespace bench
