// A definition of which a process has only one: the image's own, unless the host has it too.
extern "C" {
[[gnu::weak]] int shared_answer() { return 1; }
int shared_call() { return shared_answer(); }
}
