// The device's tuning source directory: the prefix of the `name` every
// autofocus, contrast-detect and actuator record carries, which is the source
// path of the tuning header it was generated from.
#ifndef TUNING_TUNING_SOURCE_DIR_H_
#define TUNING_TUNING_SOURCE_DIR_H_

#define Q3A_TUNING_SOURCE_DIR "device/lumen/camera/q3a/"

#endif  // TUNING_TUNING_SOURCE_DIR_H_
