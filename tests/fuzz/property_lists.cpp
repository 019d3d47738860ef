// Property lists in both directions, beside a second reader and writer, libplist. An input is a tree in a
// form of its own, which both write and the other reads; or it is a file, and what the first reads of it both
// must read again.
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <bit>
#include <cmath>
#include <memory>

#include "cli/files.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "harness/bytes.h"
#include "harness/in_process.h"
#include "objc/fast_enumeration.h"
#include "support/text.h"

namespace {

using command::Form;
using command::Kind;
using Node = std::unique_ptr<void, decltype([](plist_t node) { plist_free(node); })>;

constexpr int deepest = 6;

/// A text that XML can hold.
std::string readable(std::string_view bytes) {
    std::string text;
    for (char each : bytes) text += static_cast<char>(0x20 + static_cast<unsigned char>(each) % 0x5f);
    return text;
}

plist_t made(fuzz::Bytes& bytes, int depth) {
    switch (const size_t kind = bytes.below(depth < deepest ? 8 : 6); kind) {
        case 0: return plist_new_bool(static_cast<uint8_t>(bytes.below(2)));
        case 1: return plist_new_uint(bytes.number(1 + bytes.below(8)) >> 1);
        case 2: {
            const auto real = static_cast<double>(static_cast<int32_t>(bytes.number(4))) / 256;
            return plist_new_real(real);
        }
        case 3: return plist_new_string(readable(bytes.counted()).c_str());
        case 4: {
            const std::string_view content = bytes.counted();
            return plist_new_data(content.data(), content.size());
        }
        case 5: return plist_new_date(static_cast<int32_t>(bytes.number(4)) / 2, 0);
        case 6: {
            plist_t list = plist_new_array();
            for (size_t left = bytes.below(5); left > 0; --left)
                plist_array_append_item(list, made(bytes, depth + 1));
            return list;
        }
        default: {
            plist_t dictionary = plist_new_dict();
            for (size_t left = bytes.below(5); left > 0; --left) {
                const std::string key = readable(bytes.next(1 + bytes.below(3)));
                plist_dict_set_item(dictionary, key.c_str(), made(bytes, depth + 1));
            }
            return dictionary;
        }
    }
}

void expect_same(id ours, plist_t theirs, bool as_text);

void expect_same_dictionary(NSDictionary* ours, plist_t theirs, bool as_text) {
    ASSERT_EQ(plist_dict_get_size(theirs), (ours->send<"count", NSUInteger>()));
    objc::for_each<NSString>(ours, [&](NSString* key) {
        plist_t item = plist_dict_get_item(theirs, tools::utf8(key).c_str());
        EXPECT_NE(item, nullptr) << tools::utf8(key);
        if (item) expect_same(ours->objectForKey(key), item, as_text);
    });
}

/// The readable form has texts alone in place of numbers and dates: what stands there is not compared.
void expect_same(id ours, plist_t theirs, bool as_text) {
    const Kind kind = command::kind_of(ours);
    const plist_type type = plist_get_node_type(theirs);
    switch (type) {
        case PLIST_BOOLEAN: {
            uint8_t is = 0;
            plist_get_bool_val(theirs, &is);
            if (as_text) break;
            EXPECT_EQ(kind, Kind::boolean);
            EXPECT_EQ(command::number_of(ours) != 0, is != 0);
            break;
        }
        case PLIST_UINT: {
            uint64_t is = 0;
            plist_get_uint_val(theirs, &is);
            if (as_text) break;
            EXPECT_EQ(kind, Kind::whole);
            EXPECT_EQ((objc::send<"unsignedLongLongValue", unsigned long long>(ours)), is);
            break;
        }
        case PLIST_REAL: {
            double is = 0;
            plist_get_real_val(theirs, &is);
            if (as_text) break;
            EXPECT_EQ(kind, Kind::real);
            EXPECT_EQ(command::number_of(ours), is);
            break;
        }
        case PLIST_STRING: {
            EXPECT_EQ(kind, Kind::text);
            EXPECT_EQ(tools::utf8(static_cast<NSString*>(ours)), plist_get_string_ptr(theirs, nullptr));
            break;
        }
        case PLIST_DATA: {
            uint64_t length = 0;
            const char* bytes = plist_get_data_ptr(theirs, &length);
            EXPECT_EQ(kind, Kind::data);
            EXPECT_EQ(command::bytes_of(static_cast<NSData*>(ours)), std::string(bytes ? bytes : "", length));
            break;
        }
        case PLIST_DATE: {
            int32_t seconds = 0, fraction = 0;
            plist_get_date_val(theirs, &seconds, &fraction);
            if (as_text) break;
            EXPECT_EQ(kind, Kind::date);
            EXPECT_EQ((objc::send<"timeIntervalSinceReferenceDate", double>(ours)), seconds);
            break;
        }
        case PLIST_ARRAY: {
            ASSERT_EQ(kind, Kind::list);
            auto* list = static_cast<NSArray*>(ours);
            ASSERT_EQ(list->count(), plist_array_get_size(theirs));
            for (NSUInteger i = 0; i < list->count(); ++i)
                expect_same(list->objectAtIndex(i), plist_array_get_item(theirs, static_cast<uint32_t>(i)),
                            as_text);
            break;
        }
        case PLIST_DICT:
            ASSERT_EQ(kind, Kind::dictionary);
            expect_same_dictionary(static_cast<NSDictionary*>(ours), theirs, as_text);
            break;
        default: break;  // of keyed archives
    }
}

std::string written_by_libplist(plist_t tree, Form form) {
    char* bytes = nullptr;
    uint32_t length = 0;
    form == Form::xml ? plist_to_xml(tree, &bytes, &length) : plist_to_bin(tree, &bytes, &length);
    const std::string written(bytes ? bytes : "", length);
    std::free(bytes);
    return written;
}

Node read_by_libplist(const std::string& bytes) {
    plist_t read = nullptr;
    plist_from_memory(bytes.data(), static_cast<uint32_t>(bytes.size()), &read);
    return Node(read);
}

void both_ways(plist_t tree) {
    for (Form form : {Form::xml, Form::binary}) {
        const std::string theirs = written_by_libplist(tree, form);
        const command::PropertyList read = command::parse_property_list(theirs, "libplist's");
        EXPECT_EQ(read.form, form);
        expect_same(read.root, tree, false);
        for (Form into : {Form::xml, Form::binary, Form::open_step}) {
            command::Losses losses;
            const std::string ours = command::written_property_list(read.root, into, "ours", losses);
            if (into == Form::open_step) {
                expect_same(command::parse_property_list(ours, "ours").root, tree, true);
            } else {
                EXPECT_TRUE(losses.empty()) << losses[0];
                const Node again = read_by_libplist(ours);
                ASSERT_NE(again, nullptr) << ours;
                expect_same(read.root, again.get(), false);
            }
        }
    }
}

/// What is read of a file is read again of what is written of it, by this reader.
void read_and_write(const std::string& bytes) try {
    const command::PropertyList list = command::parse_property_list(bytes, "the file");
    for (Form into : {Form::xml, Form::binary, Form::open_step}) try {
            command::Losses losses;
            command::parse_property_list(command::written_property_list(list.root, into, "ours", losses),
                                         "ours");
        } catch (const command::Unusable& unusable) {
            // A text with characters of control has no XML.
            EXPECT_EQ(into, Form::xml) << unusable.what();
        }
} catch (const command::Unusable& unusable) {
    EXPECT_EQ(unusable.file(), "the file") << unusable.what();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::workshop();
    const fuzz::Pool pool;
    fuzz::Bytes bytes(data, size);
    if (bytes.byte() == 'f') {
        read_and_write(std::string(bytes.rest()));
    } else {
        // XML's root may be anything; that of a file is a dictionary or a list as a rule.
        const Node tree(made(bytes, 0));
        both_ways(tree.get());
    }
    return 0;
}
