#include "figures.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

namespace bench {

namespace {

using Json = nlohmann::ordered_json;
constexpr int format = 1;

std::string processor() {
    std::ifstream information("/proc/cpuinfo");
    const std::string wanted = "model name";
    for (std::string line; std::getline(information, line);)
        if (line.starts_with(wanted)) return line.substr(line.find(':') + 2);
    return "unknown";
}

/// A row's name: an indented row belongs to the one above it.
class Names {
  public:
    std::string of(const Ratio& ratio) {
        const bool belongs = ratio.what.starts_with(' ');
        if (!belongs) above_ = ratio.what;
        std::string name =
            belongs ? above_ + ": " + ratio.what.substr(ratio.what.find_first_not_of(' ')) : ratio.what;
        if (!given_.insert(name).second) name += ", against " + ratio.against;
        return name;
    }

  private:
    std::string above_;
    std::set<std::string> given_;
};

std::string found(const Json& json, const char* key) {
    if (!json.is_object()) return json.dump().substr(0, 40);
    return json.contains(key) ? json[key].dump().substr(0, 40) : "nothing";
}

double number(const Json& figure, const char* key, const std::string& where) {
    if (!figure.is_object() || !figure.contains(key) || !figure[key].is_number())
        throw UnreadableRun(where + "." + key + ": found " + found(figure, key) + ", expected a number");
    return figure[key].get<double>();
}

std::string text(const Json& object, const char* key, const std::string& where) {
    if (!object.is_object() || !object.contains(key) || !object[key].is_string())
        throw UnreadableRun(where + key + ": found " + found(object, key) + ", expected a text");
    return object[key].get<std::string>();
}

}  // namespace

Measurements run_of(const std::vector<Ratio>& ratios, const std::vector<Cost>& costs) {
    Measurements run{processor(), {}};
    Names names;
    for (const Ratio& ratio : ratios) {
        const std::string name = names.of(ratio);
        run.figures.push_back({name, "ratio", ratio.value()});
        run.figures.push_back({name, "seconds", ratio.cost});
        if (ratio.counted)
            run.figures.push_back({name, ratio.counted->what, static_cast<double>(ratio.counted->counted)});
    }
    for (const Cost& cost : costs) {
        const std::string name = cost.event + ", " + cost.to;
        if (cost.seconds) run.figures.push_back({name, "seconds", *cost.seconds});
        if (cost.instructions)
            run.figures.push_back({name, "instructions", static_cast<double>(*cost.instructions)});
        if (cost.bytes) run.figures.push_back({name, "bytes", *cost.bytes});
    }
    return run;
}

std::string json_of(const Measurements& run) {
    Json figures = Json::array();
    for (const Figure& figure : run.figures)
        figures.push_back({{"name", figure.name},
                           {"unit", figure.unit},
                           {"value", figure.value.value},
                           {"low", figure.value.low},
                           {"high", figure.value.high}});
    return Json{{"format", format}, {"processor", run.processor}, {"figures", figures}}.dump(2) + "\n";
}

Measurements read_run(const std::filesystem::path& file) {
    const std::string name = file.string() + ": ";
    std::ifstream stream(file);
    if (!stream) throw UnreadableRun(name + "cannot be read");
    const Json json = Json::parse(stream, nullptr, false);
    if (json.is_discarded() || !json.is_object())
        throw UnreadableRun(name + "found no JSON object, expected what ./dev bench --json prints");
    if (!json.contains("format") || json["format"] != format)
        throw UnreadableRun(name + "format: found " + found(json, "format") + ", expected " +
                            std::to_string(format));
    if (!json.contains("figures") || !json["figures"].is_array())
        throw UnreadableRun(name + "figures: found " + found(json, "figures") + ", expected an array");
    Measurements run{text(json, "processor", name), {}};
    for (const Json& figure : json["figures"]) {
        const std::string where = name + "figures[" + std::to_string(run.figures.size()) + "]";
        run.figures.push_back({text(figure, "name", where + "."), text(figure, "unit", where + "."),
                               Measured(number(figure, "value", where), number(figure, "low", where),
                                        number(figure, "high", where))});
    }
    return run;
}

}  // namespace bench
