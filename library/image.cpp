// The library's image: what runs, and in what order, when it is loaded.
#include "objc/image.h"

#include "hooks/named_colours.h"
#include "hooks/setup.h"

OBJC_IMAGE(hooks::set_up, hooks::hook_named_colours)
