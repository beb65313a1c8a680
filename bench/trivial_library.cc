// The smallest shared library there is: the load benchmark's lower bound.
extern "C" __attribute__((visibility("default"))) int Q3aBenchTrivial() {
  return 1;
}
