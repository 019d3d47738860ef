// huecraft convert: a property list in another form, without losing a key.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "cli/workshop.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "support/phone.h"

namespace command {
namespace {

Form form_named(const std::string& name) {
    for (Form form : {Form::open_step, Form::binary})
        if (name == name_of(form)) return form;
    return Form::xml;
}

struct Convert {
    std::string file, output, to;
    bool force = false, json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            tools::boot(workshop.device, tools::settings);
            if (!force) require_replaceable(output, OutputKind::property_list, {file});
            Losses losses;
            on_the_phone(file, [&] { losses = convert(); });
            return losses.empty() ? Status::fine : Status::finding;
        });
    }

  private:
    Losses convert() const {
        const PropertyList list = parse_property_list(read_input(file, "property list"), file);
        Losses losses;
        const std::string bytes = written_property_list(list.root, form_named(to), file, losses);
        write_output(output, bytes);
        if (output != "-") report(list.form, losses);
        for (const std::string& loss : losses)
            if (output == "-") complain(file, loss);
        return losses;
    }

    void report(Form from, const Losses& losses) const {
        if (json) {
            std::fputs(printed({{"file", file},
                                {"from", name_of(from)},
                                {"output", output},
                                {"to", to},
                                {"losses", losses}})
                           .c_str(),
                       stdout);
            return;
        }
        std::printf("%s (%s) -> %s (%s)\n", one_line(file, 4096).c_str(), name_of(from).c_str(),
                    toned(Tone::strong, one_line(output, 4096)).c_str(), to.c_str());
        for (const std::string& loss : losses)
            std::printf("  %s %s\n", toned(Tone::warning, "lost").c_str(), loss.c_str());
    }
};

}  // namespace

void add_convert(CLI::App& command, Request& request) {
    auto options = std::make_shared<Convert>();
    const Subcommand sub =
        add_subcommand(command, request, "convert", "Write a property list in another form", options);
    sub.add_option("FILE", options->file, "A theme, or any property list; - is standard input")
        .required()
        .type_name("");
    sub.add_option("-o,--output", options->output, "The file to write; - is standard output")
        .required()
        .type_name("FILE");
    sub.add_option("--to", options->to, "The form").required().takes_one_of({"xml", "binary", "openstep"});
    add_force(sub, options->force);
    add_json(sub, options->json);
    sub.footer(
        "Every key and value is kept, unknown ones too. The openstep form has no numbers, booleans and "
        "dates: they\n"
        "become texts, which the library reads as well, and each is listed (exit status 1).\n\n"
        "Examples:\n"
        "  huecraft convert Midnight.plist -o midnight.bin --to binary\n"
        "  huecraft convert midnight.bin -o - --to openstep");
}

}  // namespace command
