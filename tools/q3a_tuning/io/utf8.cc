#include "tools/q3a_tuning/io/utf8.h"

namespace q3a_tool {

std::size_t Utf8SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const unsigned lead = byte(0);
  const auto continuation = [&](std::size_t i, unsigned low = 0x80,
                                unsigned high = 0xBF) {
    return byte(i) >= low && byte(i) <= high;
  };
  if (lead >= 0xC2 && lead <= 0xDF) return continuation(1) ? 2 : 0;
  if (lead >= 0xE0 && lead <= 0xEF) {
    const unsigned low = lead == 0xE0 ? 0xA0 : 0x80;
    const unsigned high = lead == 0xED ? 0x9F : 0xBF;
    return continuation(1, low, high) && continuation(2) ? 3 : 0;
  }
  if (lead >= 0xF0 && lead <= 0xF4) {
    const unsigned low = lead == 0xF0 ? 0x90 : 0x80;
    const unsigned high = lead == 0xF4 ? 0x8F : 0xBF;
    return continuation(1, low, high) && continuation(2) && continuation(3) ? 4
                                                                            : 0;
  }
  return 0;
}

}  // namespace q3a_tool
