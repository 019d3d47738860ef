#include "plot.h"

#include <malloc.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace test {

namespace fs = std::filesystem;

Sample sample_now(size_t repetitions) {
    const struct mallinfo2 heap = mallinfo2();
    const fs::directory_iterator descriptors("/proc/self/fd");
    return {repetitions, heap.uordblks + heap.hblkhd,
            static_cast<size_t>(std::distance(begin(descriptors), end(descriptors)))};
}

double growth(const std::vector<Sample>& samples) {
    double count = 0, x = 0, y = 0, xx = 0, xy = 0;
    for (size_t i = samples.size() / 4; i < samples.size(); ++i) {
        const auto at = static_cast<double>(samples[i].repetitions),
                   bytes = static_cast<double>(samples[i].bytes);
        ++count, x += at, y += bytes, xx += at * at, xy += at * bytes;
    }
    const double spread = count * xx - x * x;
    return spread == 0 ? 0 : (count * xy - x * y) / spread;
}

void write_figures(const fs::path& folder, const std::string& name, const std::vector<Sample>& samples) {
    fs::create_directories(folder);
    std::ofstream table(folder / (name + ".tsv"));
    table << "repetitions\tbytes\tdescriptors\n";
    size_t most = 1;
    for (const Sample& each : samples) {
        table << each.repetitions << '\t' << each.bytes << '\t' << each.descriptors << '\n';
        most = std::max(most, each.bytes);
    }
    constexpr double width = 800, height = 240, margin = 40;
    std::ofstream picture(folder / (name + ".svg"));
    picture << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width + 2 * margin << "\" height=\""
            << height + 2 * margin << "\" font-family=\"sans-serif\" font-size=\"12\">\n"
            << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n<text x=\"40\" y=\"24\">" << name
            << ": bytes held, 0 to " << most << ", after 0 to " << samples.back().repetitions
            << " repetitions</text>\n<path d=\"M40 40v240h800\" fill=\"none\" stroke=\"#888\"/>\n"
            << "<polyline fill=\"none\" stroke=\"#06c\" points=\"";
    for (const Sample& each : samples)
        picture << margin + width * static_cast<double>(each.repetitions) /
                                static_cast<double>(samples.back().repetitions)
                << ','
                << margin + height - height * static_cast<double>(each.bytes) / static_cast<double>(most)
                << ' ';
    picture << "\"/>\n</svg>\n";
}

}  // namespace test
