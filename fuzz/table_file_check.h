// The check shared by the per-table file fuzz targets: read the input as one
// table's file into a record that already holds a table, then hold the reader
// to its contract. A failed read leaves every byte of the record as it was; a
// successful one gives a record that the same format writes and reads back
// unchanged.
#ifndef FUZZ_TABLE_FILE_CHECK_H_
#define FUZZ_TABLE_FILE_CHECK_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "awb_records/record_description.h"
#include "fuzz/fuzz_support.h"
#include "libs_v4/qAWB/src/base/mutable_qawb_tuning.h"
#include "libs_v4/qAWB/src/base/table_access.h"
#include "protomsg/tuning_table_traits.h"
#include "tests/support/file_bytes.h"

namespace q3a_fuzz {

using q3a_test::SameBytes;

// The two tuning file formats. A binary round trip keeps every bit. A JSON
// one keeps every value, but not the sign of a zero float: protobuf prints
// -0.0f as `-0` and reads that number back as +0.0f.
enum class TableFileFormat { kJson, kProtobuf };

// Floats equal by value or by bits (so -0 equals +0 and a NaN equals itself);
// everything else, padding aside, by its bytes.
template <typename T>
bool SameValues(const T& a, const T& b) {
  if constexpr (std::is_array_v<T>) {
    for (std::size_t i = 0; i < std::extent_v<T>; ++i) {
      if (!SameValues(a[i], b[i])) return false;
    }
    return true;
  } else if constexpr (qawb::DescribedRecord<T>) {
    bool same = true;
    qawb::ForEachFieldPair(a, b, [&](const char*, const auto& x, const auto& y) {
      same = same && SameValues(x, y);
    });
    return same;
  } else if constexpr (std::is_floating_point_v<T>) {
    return a == b || SameBytes(a, b);
  } else {
    return SameBytes(a, b);
  }
}

// Reads `data` as a file of `format` over a copy of `start`, then checks the
// contract above. The round trip starts from `start` again, so a field the
// writer leaves out or the reader skips shows as a difference.
template <typename Table>
void CheckTableFile(const uint8_t* data, std::size_t size,
                    TableFileFormat format, const Table& start) {
  using Traits = protomsg::TuningTableTraits<Table>;
  const bool json = format == TableFileFormat::kJson;
  const auto read = json ? Traits::kReadJson : Traits::kReadProtobuf;
  const auto write = [json](const std::string& path, const Table& table) {
    json ? protomsg::SaveTuningTableWithJson(path, table)
         : protomsg::SaveTuningTableWithProtobuf(path, table);
  };

  const std::string input = ScratchPath("input");
  const std::string again = ScratchPath("written");
  WriteBytes(input, data, size);

  // Tables are tens of kilobytes: keep them off the fuzzer's stack.
  auto table = std::make_unique<Table>(start);
  if (!read(input, *table)) {
    Check(SameBytes(*table, start), "failed read changed the table");
    return;
  }
  write(again, *table);
  auto reread = std::make_unique<Table>(start);
  Check(read(again, *reread), "written table does not read back");
  Check(json ? SameValues(*reread, *table) : SameBytes(*reread, *table),
        "written table reads back different");
}

// The first input byte picks the table, the rest is the file; the record
// read into starts as the container's default table of that type, realistic
// contents that a failed read must keep.
inline void CheckSelectedTableFile(const uint8_t* data, std::size_t size,
                                   TableFileFormat format) {
  if (size == 0) return;
  static const auto* start = new qawb::MutableQAWBTuning();
  const auto id =
      static_cast<qawb::TableId>(data[0] % qawb::TuningTables::kSize);
  qawb::VisitTable(id, [&]<typename Table>() {
    CheckTableFile(data + 1, size - 1, format, *qawb::GetTable<Table>(*start));
  });
}

}  // namespace q3a_fuzz

#endif  // FUZZ_TABLE_FILE_CHECK_H_
