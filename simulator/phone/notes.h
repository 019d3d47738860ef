// What happened on the phone that leaves it: programs that were started, addresses that were opened, things
// that were shared. None of it is done; tests read it.
#pragma once
#include <string>
#include <vector>

namespace sim {

struct StartedProgram {
    std::string path;
    std::vector<std::string> arguments;
    /// 0, or the error number that the caller got.
    int error = 0;
};
std::vector<StartedProgram>& started_programs();
/// What a program that was started says when it ends.
int& exit_status_of_programs();

std::vector<std::string>& opened_addresses();

struct SharedItem {
    /// "text", "file" or "image".
    std::string kind;
    /// The text, or the file's path on the device; of an image its size in points.
    std::string content;
};
std::vector<SharedItem>& shared_items();

}  // namespace sim
