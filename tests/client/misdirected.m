// Asks the library for a function of the system.
void UIGraphicsEndImageContext(void);
__attribute__((visibility("default"))) void misdirected(void) { UIGraphicsEndImageContext(); }
