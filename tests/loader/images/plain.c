// Functions and data with every ordinary kind of fix-up.
extern int host_add(int, int);
extern int host_table[4];
__attribute__((weak_import)) extern int host_extra(void);

static int numbers[] = {10, 20, 30};
int* plain_numbers[] = {&numbers[0], &numbers[1], &numbers[2]};
int* plain_third_entry = &host_table[2];
int plain_zeros[10000];
const char* plain_text = "some text";

int plain_sum(int a, int b) { return host_add(a, b); }
int plain_extra(void) { return host_extra ? host_extra() : -1; }

// One number and one pointer, often enough for the linker to use its opcodes for repeated fix-ups.
#define ROW {1, &numbers[1], &host_table[1]}
#define ROWS ROW, ROW, ROW, ROW, ROW, ROW, ROW, ROW
struct {
    long number;
    int* own;
    int* hosts;
} plain_rows[] = {ROWS, ROWS, ROWS, ROWS};
