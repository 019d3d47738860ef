#include "doctor/method_types.h"

#include "objc/descriptions/passed_types.h"

namespace command {

std::string plain_types(std::string types) {
    objc::make_plain(types.data());
    types.resize(types.find('\0') == types.npos ? types.size() : types.find('\0'));
    return types;
}

std::optional<size_t> arguments_of(const std::string& plain_types) {
    const auto all = objc::passed_types(plain_types);
    if (!all || all->size() < 3 || (*all)[1] != "@" || (*all)[2] != ":") return std::nullopt;
    return all->size() - 3;
}

}  // namespace command
