// Marks the declarations that libq3a_tuning.so exports. The library is built
// with hidden visibility, so anything not marked here stays internal.
#ifndef BASE_Q3A_EXPORT_H_
#define BASE_Q3A_EXPORT_H_

#define Q3A_EXPORT __attribute__((visibility("default")))

#endif  // BASE_Q3A_EXPORT_H_
