// Type encodings as descriptions of systems have them.
#pragma once

namespace objc {

/// Takes out of a method's or a variable's types, in place, what depends on processor and compiler: the
/// frame's size, the arguments' offsets, and qualifiers such as `const`. A class becomes an object.
/// "v24@0:8r^v16" becomes "v@:^v". What stands in brackets or quotation marks stays.
inline void make_plain(char* types) {
    char* to = types;
    int depth = 0;
    bool quoted = false, offset = true;
    for (const char* at = types; *at; ++at) {
        const char c = *at;
        if (c == '"') quoted = !quoted;
        if (!quoted && (c == '}' || c == ')' || c == ']')) --depth;
        if (!quoted && depth == 0) {
            const bool digit = c >= '0' && c <= '9';
            // The digits of a bit field are its width.
            if (!digit) offset = c != 'b';
            bool qualifier = false;
            for (const char* each = "rnNoORVA+-"; *each; ++each) qualifier = qualifier || c == *each;
            if (qualifier || (digit && offset)) continue;
        }
        if (!quoted && (c == '{' || c == '(' || c == '[')) ++depth;
        *to++ = c == '#' && depth == 0 ? '@' : c;
    }
    *to = '\0';
}

}  // namespace objc
