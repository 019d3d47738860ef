// Asks for two functions and a variable that nobody has, and for one function that the host has.
extern int host_add(int, int), nobodys_function(void), nobodys_other_function(void);
extern int nobodys_variable;

int missing_sum(void) { return host_add(nobodys_function(), nobodys_other_function()) + nobodys_variable; }
