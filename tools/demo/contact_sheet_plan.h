// What the contact sheet shows: rows of one surface each, before and after.
#pragma once
#include <string>
#include <vector>

#include "simulator.h"
#include "themes.h"

namespace demo {

struct Cell {
    /// No name: the system's own keyboard.
    Look look;
    /// What is shown of the keyboard, as a part of the picture's name.
    std::string surface;
    std::string caption;
    sim_keyboard keyboard;

    /// The file's name, without a folder.
    std::string picture() const;
};

struct Row {
    std::string title;
    std::vector<Cell> cells;
};

std::vector<Row> contact_sheet_rows();

}  // namespace demo
