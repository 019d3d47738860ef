// Everything that the library puts its hand to, shown once.
#pragma once
#include "support/phone.h"

namespace test {

/// Shows keyboards of every kind under every kind of background, the preview, the panel and the colour
/// picker; each is laid out and drawn. Fails the test where something raises.
void show_every_surface(const Phone& phone);

/// The keyboards alone.
void show_every_keyboard(const Phone& phone);

}  // namespace test
