// The views that show an input method's candidates. Recorded of each are its name and its variable
// `_backdropView`; superclasses and everything else are guesses.
#pragma once
#include "platform/keyboard.h"

/// Rows of candidates over a UIKBBackdropView, on phones.
struct UIKeyboardCandidateGrid : objc::Interface<UIKeyboardCandidateGrid, "UIKeyboardCandidateGrid", UIView> {
};

/// The title over a grid's rows, over another UIKBBackdropView.
struct UIKeyboardCandidateGridHeader
    : objc::Interface<UIKeyboardCandidateGridHeader, "UIKeyboardCandidateGridHeader", UIView> {};

/// Rows of candidates over a UIKBInputBackdropView, on tablets.
struct UIKeyboardCandidateView_iPad
    : objc::Interface<UIKeyboardCandidateView_iPad, "UIKeyboardCandidateView_iPad", UIView> {};
