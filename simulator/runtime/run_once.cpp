// dispatch_once_f: a function that runs once, whichever thread comes first.
#include <condition_variable>
#include <mutex>

#include "objc/runtime.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace {

// The states of the predicate: zero, then a token of the thread that runs the function, then all bits set.
constexpr long done = ~0L;

long token_of_this_thread() {
    static thread_local char here;
    return static_cast<long>(reinterpret_cast<intptr_t>(&here));
}

std::mutex lock;
std::condition_variable finished;

}  // namespace

SIM_EXPORTED void dispatch_once_f(long* once, void* context, void (*function)(void*)) {
    if (__atomic_load_n(once, __ATOMIC_ACQUIRE) == done) return;
    {
        std::unique_lock guard(lock);
        if (*once == token_of_this_thread())
            sim::not_modelled("dispatch_once_f",
                              "called from its own function, which waits for ever on the device");
        finished.wait(guard, [once] { return *once == 0 || *once == done; });
        if (*once == done) return;
        *once = token_of_this_thread();
    }
    // An exception that leaves the function ends the process, as on the device.
    [&]() noexcept { function(context); }();
    {
        std::lock_guard guard(lock);
        __atomic_store_n(once, done, __ATOMIC_RELEASE);
    }
    finished.notify_all();
}
