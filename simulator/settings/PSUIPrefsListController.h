// The root list of Settings.
#pragma once
#include "platform/preferences.h"

struct PSListController : objc::Interface<PSListController, "PSListController", PSViewController> {};
struct PSUIPrefsListController
    : objc::Interface<PSUIPrefsListController, "PSUIPrefsListController", PSListController> {};
