/* A module without a version resource. */
int NoVersionModule(void) { return 0; }
