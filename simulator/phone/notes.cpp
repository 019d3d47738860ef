#include "phone/notes.h"

namespace sim {

std::vector<StartedProgram>& started_programs() {
    static auto* programs = new std::vector<StartedProgram>;
    return *programs;
}

int& exit_status_of_programs() {
    static int status = 0;
    return status;
}

std::vector<std::string>& opened_addresses() {
    static auto* addresses = new std::vector<std::string>;
    return *addresses;
}

std::vector<SharedItem>& shared_items() {
    static auto* items = new std::vector<SharedItem>;
    return *items;
}

}  // namespace sim
