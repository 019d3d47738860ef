// The state of a multibyte conversion: libc++'s forward declarations name it, and nothing here converts.
#pragma once

typedef union {
    char bytes[128];
    long long alignment;
} mbstate_t;
