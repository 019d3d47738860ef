// A thread-local variable, which the loader has to refuse.
_Thread_local int threads_counter = 1;
int threads_next(void) { return ++threads_counter; }
