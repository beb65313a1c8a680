// What the built-in autofocus tunings are made of: one full tuning per
// sensor's preview, and the changes that make a video tuning of it. A video
// tuning focuses continuously and tracks, searches in finer steps and
// further at every level, and waits longer before it calls a scene changed
// or a subject lost.
#ifndef TUNING_AF_QAF_TUNING_COMMON_H_
#define TUNING_AF_QAF_TUNING_COMMON_H_

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "coordinator/qaf_tuning.h"

namespace q3a_tuning::af {

// Copies `from` over `to`; the counts must agree.
template <typename T, std::size_t N>
constexpr void Assign(T (&to)[N], const std::type_identity_t<T> (&from)[N]) {
  for (std::size_t i = 0; i < N; ++i) to[i] = from[i];
}

constexpr qaf::QafParamsHead VideoHead(qaf::QafParamsHead head) {
  head.continuous_enable = 1;
  head.coarse_search_step = 40;
  head.fine_search_step = 10;
  head.pd_defocus_gain = 1.0f;
  head.scene_change_luma_threshold = 12;
  head.scene_change_sad_threshold = 0.15f;
  head.scene_change_frames = 6;
  return head;
}

constexpr qaf::QafParamsTail VideoTail(qaf::QafParamsTail tail) {
  tail.tracking_enable = 1;
  tail.stable_frames = 4;
  tail.lost_frames = 10;
  tail.convergence_frames = 8;
  Assign(tail.motion_thresholds, {0.03f, 0.07f, 0.14f, 0.25f});
  Assign(tail.retrigger_params, {5, 10, 20, 60, 4});
  for (std::int32_t& steps : tail.fine_search_table) steps += 3;
  return tail;
}

}  // namespace q3a_tuning::af

#endif  // TUNING_AF_QAF_TUNING_COMMON_H_
