// Well-formed UTF-8, as the tool's readers and writers check it.
#ifndef TOOLS_Q3A_TUNING_IO_UTF8_H_
#define TOOLS_Q3A_TUNING_IO_UTF8_H_

#include <cstddef>
#include <string_view>

namespace q3a_tool {

// The length of the well-formed multi-byte UTF-8 sequence at the start of
// `text` (no overlong forms, surrogates or code points past U+10FFFF), or
// 0: also for an ASCII byte, which callers take on their own.
std::size_t Utf8SequenceLength(std::string_view text);

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_UTF8_H_
