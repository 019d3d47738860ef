#include "page.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include "measuring/check.h"
#include "table.h"

namespace bench {

namespace {

namespace fs = std::filesystem;

struct Event {
    std::string name;
    std::vector<Cost> costs;
    bool is_by_size() const { return costs.front().size != 0; }
};

/// In the order of the run; what goes by size is an event of its own.
std::vector<Event> events_of(const std::vector<Cost>& costs) {
    std::vector<Event> events;
    for (const Cost& cost : costs) {
        if (events.empty() || events.back().name != cost.event ||
            events.back().is_by_size() != (cost.size != 0))
            events.push_back({cost.event, {}});
        events.back().costs.push_back(cost);
    }
    return events;
}

struct Axis {
    const char* label;
    double unit;
    const std::optional<Measured> Cost::* figure;
};
constexpr Axis time_axis{"milliseconds", 1e-3, &Cost::seconds}, memory_axis{"megabytes", 1e6, &Cost::bytes};

/// A line for each cost: its name, its size in kilobytes, the figure and its range.
std::string data_of(const Event& event, const Axis& axis) {
    std::ostringstream data;
    for (const Cost& cost : event.costs)
        if (const auto& figure = cost.*axis.figure)
            data << '"' << cost.to << "\"\t" << static_cast<double>(cost.size) / 1e3 << '\t'
                 << figure->value / axis.unit << '\t' << figure->low / axis.unit << '\t'
                 << figure->high / axis.unit << '\n';
    return data.str();
}

/// Bars for what has names, a line over both logarithms for what goes by size.
std::string script_of(const Event& event, const Axis& axis) {
    std::ostringstream script;
    script << "set terminal svg size 720,320 font 'sans-serif,12' background rgb 'white'\nset title \""
           << event.name << "\"\nset ylabel '" << axis.label
           << "'\nunset key\nset grid ytics\n$figures << END\n"
           << data_of(event, axis) << "END\n";
    if (event.is_by_size())
        script << "set logscale xy\nset xlabel 'kilobytes of image'\n"
                  "plot $figures using 2:3:4:5 with yerrorlines linecolor rgb '#0066cc' pointtype 7\n";
    else
        script << "set boxwidth 0.6\nset style fill solid\nset yrange [0:*]\nset xrange [-0.6:*]\n"
                  "plot $figures using 0:3:xtic(1) with boxes linecolor rgb '#88bbee', "
                  "$figures using 0:4:(0):($5-$4) with vectors nohead linecolor rgb '#444444'\n";
    return script.str();
}

/// Without the blanks that gnuplot ends some lines with.
void draw(const std::string& script, const fs::path& picture) {
    const std::string file = "'" + picture.string() + "'";
    const std::string command = "gnuplot >" + file + " && sed -i 's/[[:blank:]]*$//' " + file;
    FILE* gnuplot = popen(command.c_str(), "w");
    check(gnuplot && std::fputs(script.c_str(), gnuplot) >= 0,
          "gnuplot can be started: ./dev bench installs it");
    check(pclose(gnuplot) == 0, "gnuplot draws a plot");
}

void write_table(std::ostream& page, const Event& event) {
    page << "| | takes | instructions | memory |\n|---|---|---|---|\n";
    for (const Cost& cost : event.costs)
        page << "| " << cost.to << " | " << (cost.seconds ? time_in_words(*cost.seconds) : "") << " | "
             << (cost.instructions ? std::to_string(*cost.instructions) : "") << " | "
             << (cost.bytes ? bytes_in_words(*cost.bytes) : "") << " |\n";
    page << '\n';
}

}  // namespace

void write_page(const fs::path& file, const std::string& processor, const std::vector<Cost>& costs) {
    fs::path folder = file;
    folder.replace_extension();
    fs::create_directories(folder);
    std::ofstream page(file);
    page << "# What theming costs\n\nWritten by `./dev bench costs --page " << file.generic_string()
         << "`, on a processor that calls itself " << processor
         << ". [How it is measured](benchmarks.md#the-whole-cost).\n\n";
    int number = 0;
    for (const Event& event : events_of(costs)) {
        page << "## " << static_cast<char>(std::toupper(event.name[0])) << event.name.substr(1)
             << (event.is_by_size() ? ", by the size of the image" : "") << "\n\n";
        write_table(page, event);
        for (const Axis& axis : {time_axis, memory_axis}) {
            if (data_of(event, axis).empty()) continue;
            const fs::path picture = folder / ("costs-" + std::to_string(++number) + ".svg");
            draw(script_of(event, axis), picture);
            page << "![" << event.name << ", " << axis.label << "]("
                 << (folder.filename() / picture.filename()).string() << ")\n\n";
        }
    }
    page.close();
    check(page.good(), ("the page can be written: " + file.string()).c_str());
}

}  // namespace bench
