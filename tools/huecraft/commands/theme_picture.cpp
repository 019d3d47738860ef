#include "commands/theme_picture.h"

#include "cli/command_line.h"
#include "cli/files.h"
#include "commands/watch.h"

namespace command {

Status ThemePicture::draw_once(const Draw& draw) const {
    return in_workshop([&](const Workshop& workshop) {
        if (!force) require_replaceable(output, OutputKind::picture, {file, library});
        const std::string theme = read_input(file);
        const auto build = command::library(library);
        draw(workshop,
             {theme,
              build,
              {tools::sha256_of(read_input(build, "library", largest_input)), tools::sha256_of(theme)}});
        return Status::fine;
    });
}

Status ThemePicture::run(const Draw& draw) const {
    if (!watching) return draw_once(draw);
    if (json) throw Unusable("--watch", "it has no answer in JSON, since it does not end");
    return watch({file, output, force}, [&] { return draw_once(draw); });
}

void add_theme_picture(Subcommand sub, ThemePicture& picture, const std::string& scale_without) {
    sub.add_option("THEME", picture.file, "The theme; - is standard input").required().type_name("");
    sub.add_option("-o,--output", picture.output, "The picture to write, as PNG; - is standard output")
        .required()
        .type_name("FILE");
    sub.add_option("--scale", picture.scale, "Pixels per point; " + scale_without).takes_number(0.1, 8);
    sub.add_flag("--watch", picture.watching,
                 "Draw again on every save, and keep a page beside the picture in step; ^C ends it");
    add_library(sub, picture.library);
    add_force(sub, picture.force);
    add_json(sub, picture.json);
}

}  // namespace command
