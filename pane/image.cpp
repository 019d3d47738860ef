// The pane's image: classes alone. Nothing runs when Settings loads it.
#include "objc/image.h"

OBJC_IMAGE()
