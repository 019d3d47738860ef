// Notes the order in which initialisers run.
extern void host_note(int);
static int ready = 1;

__attribute__((constructor)) static void first(void) { host_note(ready); }
__attribute__((constructor)) static void second(void) { host_note(ready + 1); }
