// An AWB tuning that owns modifiable copies of its four tables and can dump
// them to, and restore them from, the tuning binary file: the four table
// records' raw bytes back to back (basic, advance, colour-control, feature;
// 102944 bytes, machine byte order, no header). The record layouts are
// therefore that file's format.
#ifndef LIBS_V4_QAWB_SRC_BASE_MUTABLE_QAWB_TUNING_H_
#define LIBS_V4_QAWB_SRC_BASE_MUTABLE_QAWB_TUNING_H_

#include <cstddef>
#include <string>

#include "base/q3a_export.h"
#include "libs_v4/qAWB/src/base/qawb_tuning.h"

namespace qawb {

// Holds the four tables by value, so the getters never return null and their
// addresses stay fixed for the container's life: a later Set, ReadFromTable
// or ReadFromFile changes the tables in place. Failures are logged to the
// Android log at error priority under the log's default tag. No lock: callers
// serialise writers against readers.
class Q3A_EXPORT MutableQAWBTuning : public QAWBTuning {
 public:
  // Size of the tuning binary file, the four tables back to back.
  static constexpr std::size_t kTuningBinaryFileSize =
      sizeof(QAWBBasicTuningTable) + sizeof(QAWBAdvanceTuningTable) +
      sizeof(QAWBColorControlTuningTable) + sizeof(QAWBFeatureTuningTable);

  // Starts with copies of the library's four default tables.
  MutableQAWBTuning();
  ~MutableQAWBTuning() override;

  const QAWBBasicTuningTable* GetBasicTuningTable() const override;
  const QAWBAdvanceTuningTable* GetAdvanceTuningTable() const override;
  const QAWBColorControlTuningTable* GetColorControlTuningTable()
      const override;
  const QAWBFeatureTuningTable* GetFeatureTuningTable() const override;

  // Copy the whole record over the owned table and return true; a null
  // `table` returns false and changes nothing.
  bool SetBasicTuningTable(const QAWBBasicTuningTable* table);
  bool SetAdvanceTuningTable(const QAWBAdvanceTuningTable* table);
  bool SetColorControlTuningTable(const QAWBColorControlTuningTable* table);
  bool SetFeatureTuningTable(const QAWBFeatureTuningTable* table);

  // Copies all four records over the owned tables and returns true. None of
  // the pointers may be null; they are not checked.
  bool ReadFromTable(const QAWBBasicTuningTable* basic,
                     const QAWBAdvanceTuningTable* advance,
                     const QAWBColorControlTuningTable* color_control,
                     const QAWBFeatureTuningTable* feature);

  // Writes the tuning binary file to `path`, creating or truncating it. Logs
  // when the file cannot be opened; write errors are not reported.
  void WriteToFile(const std::string& path) const;

  // Reads a tuning binary file into the four tables. Returns false, logs and
  // changes nothing if the file cannot be opened or is not exactly
  // kTuningBinaryFileSize bytes long. The content is not validated, and a
  // read error after the size check is not reported.
  bool ReadFromFile(const std::string& path);

 private:
  QAWBBasicTuningTable basic_;
  QAWBAdvanceTuningTable advance_;
  QAWBColorControlTuningTable color_control_;
  QAWBFeatureTuningTable feature_;
};

}  // namespace qawb

#endif  // LIBS_V4_QAWB_SRC_BASE_MUTABLE_QAWB_TUNING_H_
