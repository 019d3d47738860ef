// What is done with themes beside choosing them: the sheets and alerts that lead to it.
#pragma once
#include "pane/screens/HuecraftSettingsController.h"
#include "pane/screens/asking.h"

namespace pane {

/// A new theme, and one that was copied somewhere else.
void offer_additions(HuecraftSettingsController* page, const SheetSource& source);

/// What suits the file: of the user's or not, with a theme inside or not.
void offer_actions(HuecraftSettingsController* page, NSString* folder, NSString* file,
                   const SheetSource& source);

}  // namespace pane
