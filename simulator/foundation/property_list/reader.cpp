// Which format some bytes have.
#include "foundation/property_list/reader.h"

#include <optional>

#include "foundation/property_list/text_encoding.h"

namespace sim::plist {

PropertyList read(std::string_view bytes, Mutability mutability) {
    if (bytes.empty()) throw ParseError("there are no bytes to read");
    const ObjectMaker maker(mutability);
    if (bytes.starts_with("bplist")) return {read_binary(bytes, maker), Format::binary};

    std::string storage;
    const auto text = decode(bytes, storage);
    if (!text) throw ParseError("the bytes are neither a binary property list nor text");

    // "<" begins XML and, in the old format, data: what is not XML may still be that.
    std::optional<ParseError> not_xml;
    const size_t first = text->find_first_not_of(" \t\r\n");
    if (first != text->npos && (*text)[first] == '<') {
        try {
            return {read_xml(*text, maker), Format::xml};
        } catch (const ParseError& error) {
            not_xml = error;
        }
    }
    try {
        return {read_open_step(*text, maker), Format::open_step};
    } catch (const ParseError&) {
        if (not_xml) throw *not_xml;
        throw;
    }
}

}  // namespace sim::plist
