// The files that the library reads and writes, held against the constant texts of the dylib.
#pragma once
#include <set>
#include <string>
#include <vector>

namespace contract {

struct File {
    std::string path;
    std::string access;
    std::vector<std::string> keys;
};

/// Those whose paths the dylib holds. Throws a runtime_error, naming it, for a path or key of the dylib that
/// is not described here, and for a described key that the dylib does not hold.
std::vector<File> files_named_in(const std::set<std::string>& texts);

}  // namespace contract
