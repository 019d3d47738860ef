// Restarting the home screen, which is when every process reads the theme.
#pragma once

namespace pane {

/// Whether somebody set about it; then this process ends soon. Programs that hold the right themselves come
/// first, since what rights Settings has is not known; the system's own service, which wants one of the
/// process that asks, is last.
bool restart_springboard();

}  // namespace pane
