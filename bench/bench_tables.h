// What the benchmarks run on: the four AWB tables with their messages and
// file functions, each in two contents. "built_in" is the phone's own tuning
// as the registry holds it (realistic counts, many zero entries); "full" has
// a distinct non-zero value in every field, so every array is carried at
// full capacity with the widest encodings (the worst case for every format).
#ifndef BENCH_BENCH_TABLES_H_
#define BENCH_BENCH_TABLES_H_

#include <memory>
#include <string>

#include "awb_records/tuning_tables.h"
#include "libs_v4/qAWB/proto/qawb_tuning.pb.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/file_bytes.h"
#include "tests/support/record_values.h"

namespace q3a_bench {

enum class Content { kBuiltIn, kFull };

const char* ContentName(Content content);

// The main camera's still-capture AWB tuning from the registry.
const qawb::QAWBTuning& BuiltInAwbTuning();

// The tables' messages, names and readers.
template <typename Table>
using TableTraits = protomsg::TuningTableTraits<Table>;

// A heap copy of `Table` with the given content; the same object on every
// call for the same arguments.
template <typename Table>
const Table& TableContent(Content content) {
  static const Table* const built_in =
      new Table(*qawb::GetTable<Table>(BuiltInAwbTuning()));
  static const Table* const full = q3a_test::MakeRecord<Table>(1).release();
  return content == Content::kBuiltIn ? *built_in : *full;
}

// Calls fn.template operator()<Table>(content) for every table and content.
template <typename Fn>
void ForEachTableAndContent(Fn fn) {
  for (Content content : {Content::kBuiltIn, Content::kFull}) {
    qawb::ForEachTable(
        [&]<typename Table>() { fn.template operator()<Table>(content); });
  }
}

// "<operation>/<table>/<content>".
template <typename Table>
std::string BenchmarkName(const char* operation, Content content) {
  return std::string(operation) + "/" + std::string(TableTraits<Table>::kName) +
         "/" + ContentName(content);
}

// A directory for the benchmarks' files (q3a_test::ProcessTempDir).
const std::string& ScratchDir();

using q3a_test::ReadFile;

}  // namespace q3a_bench

#endif  // BENCH_BENCH_TABLES_H_
