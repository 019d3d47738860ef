// Runs something in this process and undoes what it left behind.
#pragma once

namespace test {

/// Calls `act` on a stack of its own, with its output thrown away. Then memory is what it was before, byte
/// for byte, and so are open files, the folder that the process is in and what is done about signals. What
/// stays is what an emulator has learnt: the code that ran is translated, for this process and for those that
/// it forks. `act` may call exit: what is registered for that is called, and the process goes on from here.
///
/// False when that cannot be undone: a thread was left running, or something is gone that was mapped
/// read-only; stderr says which. The process is not to be used any longer then. What `act` does to files, and
/// to other processes, stays.
bool rehearse(void (*act)(void*), void* context);

}  // namespace test
