// A finger on the screen.
#include "uikit/events/UITouch.h"

using namespace objc::definition;
using sim::Touch;

OBJC_CLASS(UITouch, NSObject, Touch,
           property<"phase", &Touch::Ivars::phase>,
           property<"view", &Touch::Ivars::view>,
           property<"window", &Touch::Ivars::window>,
           ivar<"_location", &Touch::Ivars::location>,
           ivar<"_previous", &Touch::Ivars::previous>,
           property<"timestamp", &Touch::Ivars::timestamp>,
           property<"tapCount", &Touch::Ivars::tapCount>,
           method<"locationInView:", &Touch::locationInView>,
           method<"previousLocationInView:", &Touch::previousLocationInView>)
