// What `keyboard` and `preview` share: one theme, one picture of it.
#pragma once
#include <filesystem>
#include <functional>
#include <string>

#include "cli/options.h"
#include "cli/workshop.h"
#include "support/provenance.h"

namespace command {

struct ThemePicture {
    std::string file, output, library;
    double scale = 0;
    bool force = false, json = false, watching = false;

    /// A theme that was read, and what is to draw it.
    struct Task {
        std::string contents;
        std::filesystem::path library;
        tools::Provenance provenance;
    };
    using Draw = std::function<void(const Workshop&, const Task&)>;

    /// Has it drawn in a process of its own; when it is watched, again and again until a signal ends it.
    Status run(const Draw& draw) const;

  private:
    Status draw_once(const Draw& draw) const;
};

/// Adds the options; `scale_without` says what the scale is when nobody does.
void add_theme_picture(Subcommand subcommand, ThemePicture& picture, const std::string& scale_without);

}  // namespace command
