/* The code of the test modules without a usable version resource. */
int NoVersionModule(void) { return 0; }
