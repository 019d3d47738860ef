#include "support/rehearsal.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>

namespace test {
namespace {

constexpr size_t page_size = 4096, stack_size = 16 << 20, most_files = 1024;

struct Range {
    uintptr_t start, end;
    bool readable, writable, shared;
};

/// What is mapped, in the order of the addresses. It allocates nothing.
struct Mappings {
    std::array<Range, 4096> ranges;
    size_t count = 0;
    std::span<const Range> all() const { return {ranges.data(), count}; }
};

/// Everything that is needed to undo; it lies where nothing is undone.
struct Rehearsal {
    void (*act)(void*);
    void* context;
    ucontext_t before, during;
    int memory, folder, output[2];
    void* heap_end;
    size_t threads;
    /// Why it cannot be undone; nullptr where it can.
    const char* hindrance;
    Mappings was, is;
    std::array<bool, most_files> open;
    std::array<struct sigaction, 65> actions;
    std::array<char, 1 << 20> text;
    alignas(64) std::array<char, stack_size> stack;

    uintptr_t start() const { return reinterpret_cast<uintptr_t>(this); }
    uintptr_t end() const { return start() + (sizeof *this + page_size - 1) / page_size * page_size; }
};

[[noreturn]] void give_up(const char* what) {
    std::fprintf(stderr, "a rehearsal: %s\n", what);
    _exit(2);
}

size_t threads() {
    size_t count = 0;
    DIR* folder = opendir("/proc/self/task");
    if (!folder) return 0;
    while (readdir(folder)) ++count;
    closedir(folder);
    return count;
}

/// Whether there are no more threads than before. One that was joined may be listed a little longer, under an
/// emulator that still clears up after it.
bool threads_have_ended(const Rehearsal& own) {
    constexpr int most_waits = 1000;
    constexpr unsigned microseconds = 5000;
    for (int waits = 0; threads() > own.threads; ++waits) {
        if (waits == most_waits) return false;
        usleep(microseconds);
    }
    return true;
}

/// Reads /proc/self/maps, without the rehearsal itself.
void read_mappings(Rehearsal& own, Mappings& mappings) {
    const int file = open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    if (file < 0) give_up("there is no list of what is mapped");
    size_t length = 0;
    while (const ssize_t count = read(file, own.text.data() + length, own.text.size() - 1 - length)) {
        if (count < 0) give_up("what is mapped cannot be read");
        length += static_cast<size_t>(count);
    }
    close(file);
    if (length + 1 >= own.text.size()) give_up("more is mapped than there is room for");
    own.text[length] = 0;
    mappings.count = 0;
    for (char* line = own.text.data(); *line;) {
        char* next = line;
        const uintptr_t start = std::strtoul(next, &next, 16), end = std::strtoul(next + 1, &next, 16);
        const Range range{start, end, next[1] == 'r', next[2] == 'w', next[4] == 's'};
        // Neighbours that are alike are listed as one.
        Range below = range, above = range;
        below.end = std::min(end, own.start());
        above.start = std::max(start, own.end());
        for (const Range& part : {below, above}) {
            if (part.start >= part.end) continue;
            if (mappings.count == mappings.ranges.size()) give_up("more is mapped than there is room for");
            mappings.ranges[mappings.count++] = part;
        }
        line = std::strchr(next, '\n');
        line = line ? line + 1 : own.text.data() + length;
    }
}

bool is_saved(const Range& range) { return range.writable && !range.shared; }

/// Whether the ranges that `counts` takes cover all of it.
template <class Counts>
bool covered(const Range& range, const Mappings& by, Counts counts) {
    uintptr_t at = range.start;
    for (const Range& each : by.all())
        if (each.start <= at && at < each.end && counts(each)) at = each.end;
    return at >= range.end;
}

void save_memory(Rehearsal& own) {
    read_mappings(own, own.was);
    off_t at = 0;
    for (const Range& range : own.was.all()) {
        if (!is_saved(range)) continue;
        for (uintptr_t from = range.start; from < range.end;) {
            const ssize_t count = pwrite(own.memory, reinterpret_cast<void*>(from), range.end - from, at);
            if (count <= 0) give_up("memory cannot be saved");
            from += static_cast<uintptr_t>(count);
            at += count;
        }
    }
}

/// Takes away what was not mapped before. What the heap has grown by is the heap's to keep: an emulator may
/// count on it.
void unmap_new(Rehearsal& own, uintptr_t heap_from, uintptr_t heap_to) {
    for (const Range& range : own.is.all())
        if (range.start < heap_to && heap_to < range.end) heap_to = range.end;
    for (const Range& range : own.is.all()) {
        struct Part {
            uintptr_t start, end;
        };
        uintptr_t at = range.start;
        const auto unmap_until = [&](uintptr_t to) {
            for (const Part& part : {Part{at, std::min(to, heap_from)}, Part{std::max(at, heap_to), to}})
                if (part.start < part.end) munmap(reinterpret_cast<void*>(part.start), part.end - part.start);
        };
        for (const Range& old : own.was.all()) {
            if (old.end <= at || old.start >= range.end) continue;
            if (old.start > at) unmap_until(old.start);
            at = old.end;
        }
        if (at < range.end) unmap_until(range.end);
    }
}

/// Answers what hinders it, if something does.
const char* restore_memory(Rehearsal& own) {
    const auto pages = [](void* address) {
        return (reinterpret_cast<uintptr_t>(address) + page_size - 1) / page_size * page_size;
    };
    const auto map_again = [](const Range& range) {
        return mmap(reinterpret_cast<void*>(range.start), range.end - range.start,
                    range.writable ? PROT_READ | PROT_WRITE : PROT_NONE,
                    MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_NORESERVE, -1, 0) != MAP_FAILED;
    };
    void* grown = sbrk(0);
    syscall(SYS_brk, own.heap_end);
    read_mappings(own, own.is);
    unmap_new(own, pages(own.heap_end), pages(grown));
    off_t at = 0;
    for (const Range& range : own.was.all()) {
        const bool saved = is_saved(range);
        const auto counts = [&](const Range& each) { return !saved || is_saved(each); };
        if (!covered(range, own.is, counts)) {
            // The stack of a thread that was joined may be gone, and the guard before it, which nobody may
            // touch.
            if (!saved && range.readable) return "something that was mapped is gone";
            if (!map_again(range)) return "memory that is gone cannot be mapped again";
        }
        if (!saved) continue;
        for (uintptr_t from = range.start; from < range.end;) {
            const ssize_t count = pread(own.memory, reinterpret_cast<void*>(from), range.end - from, at);
            if (count <= 0) return "memory cannot be read back";
            from += static_cast<uintptr_t>(count);
            at += count;
        }
    }
    return nullptr;
}

void save_the_rest(Rehearsal& own) {
    own.folder = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (size_t each = 1; each < own.actions.size(); ++each)
        sigaction(static_cast<int>(each), nullptr, &own.actions[each]);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    for (int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        own.output[stream - 1] = fcntl(stream, F_DUPFD_CLOEXEC, 3);
        if (own.folder < 0 || own.output[stream - 1] < 0 || dup2(nowhere, stream) < 0)
            give_up("there is no room for open files");
    }
    close(nowhere);
    own.threads = threads();
    own.heap_end = sbrk(0);
    for (size_t file = 0; file < most_files; ++file)
        own.open[file] = fcntl(static_cast<int>(file), F_GETFD) != -1;
}

void restore_the_rest(Rehearsal& own) {
    for (size_t file = 0; file < most_files; ++file)
        if (!own.open[file]) close(static_cast<int>(file));
    for (int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        dup2(own.output[stream - 1], stream);
        close(own.output[stream - 1]);
    }
    if (fchdir(own.folder) != 0) own.hindrance = "the folder that the process was in is gone";
    close(own.folder);
    for (size_t each = 1; each < own.actions.size(); ++each)
        sigaction(static_cast<int>(each), &own.actions[each], nullptr);
}

Rehearsal* underway = nullptr;

[[noreturn]] void end(Rehearsal& own) {
    own.hindrance = threads_have_ended(own) ? restore_memory(own) : "a thread is still running";
    setcontext(&own.before);
    give_up("there is no way back");
}

// On the rehearsal's own stack: every other one is memory that is saved and restored.
void run(unsigned upper, unsigned lower) {
    auto& own = *reinterpret_cast<Rehearsal*>(uintptr_t{upper} << 32 | lower);
    save_memory(own);
    own.act(own.context);
    end(own);
}

// What is registered before any library starts is called when all of them have ended.
void at_the_very_end(int, void*) {
    if (underway) end(*underway);
}
void at_the_very_start() { on_exit(at_the_very_end, nullptr); }
[[gnu::section(".preinit_array"), gnu::used]] void (*preparation)() = at_the_very_start;

}  // namespace

bool rehearse(void (*act)(void*), void* context) {
    std::fflush(nullptr);
    void* place = mmap(nullptr, sizeof(Rehearsal), PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (place == MAP_FAILED) give_up("there is no memory");
    auto& own = *static_cast<Rehearsal*>(place);
    own.act = act;
    own.context = context;
    own.memory = memfd_create("rehearsal", MFD_CLOEXEC);
    if (own.memory < 0) give_up("there is no memory");
    save_the_rest(own);
    getcontext(&own.during);
    own.during.uc_stack = {.ss_sp = own.stack.data(), .ss_flags = 0, .ss_size = own.stack.size()};
    own.during.uc_link = nullptr;
    makecontext(&own.during, reinterpret_cast<void (*)()>(&run), 2, static_cast<unsigned>(own.start() >> 32),
                static_cast<unsigned>(own.start()));
    underway = &own;
    swapcontext(&own.before, &own.during);
    underway = nullptr;
    restore_the_rest(own);
    const char* const hindrance = own.hindrance;
    close(own.memory);
    munmap(place, sizeof(Rehearsal));
    if (hindrance) std::fprintf(stderr, "a rehearsal: %s\n", hindrance);
    return !hindrance;
}

}  // namespace test
