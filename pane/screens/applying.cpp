#include "pane/screens/applying.h"

#include "pane/model/restart.h"
#include "pane/screens/asking.h"

namespace pane {

void ask_for_restart(UIViewController* page, NSString* why) {
    UIAlertController* alert = make_alert(text<"Restart now?">(), why);
    add_cancel(alert);
    add_answer(alert, text<"Restart">(), UIAlertActionStyleDefault,
               [page = objc::strong<UIViewController>(page)] {
                   if (restart_springboard()) return;
                   tell(page, text<"This phone cannot be restarted from here.">(),
                        text<"Turn it off and on again, or run \"killall SpringBoard\" in a terminal.">());
               });
    show(alert, page);
}

}  // namespace pane
