// The photo picker's one page.
#pragma once
#include "platform/sharing.h"

struct _UIImagePickerList : objc::Interface<_UIImagePickerList, "_UIImagePickerList", UIViewController> {};
