// The JSON options of the tuning files, in one place for every caller that
// hands a tuning file to protobuf's JSON functions: the library's readers and
// writers, the tool, the table generator, the benchmarks and the fuzzers.
#ifndef PROTOMSG_INTERNAL_JSON_OPTIONS_H_
#define PROTOMSG_INTERNAL_JSON_OPTIONS_H_

#include <google/protobuf/util/json_util.h>

namespace protomsg::internal {

// How the tuning files are printed. The direct writer (json_writer.h) prints
// this form itself and checks at compile time that it is the one set here.
struct TuningFilePrintForm {
  bool add_whitespace;
  bool always_print_primitive_fields;
  bool always_print_enums_as_ints;
  bool preserve_proto_field_names;
};

// Indented, every scalar printed even when 0, enum values by name, the
// schema's snake_case field names.
inline constexpr TuningFilePrintForm kTuningFilePrintForm = {
    .add_whitespace = true,
    .always_print_primitive_fields = true,
    .always_print_enums_as_ints = false,
    .preserve_proto_field_names = true,
};

inline google::protobuf::util::JsonPrintOptions TuningFilePrintOptions() {
  google::protobuf::util::JsonPrintOptions options;
  options.add_whitespace = kTuningFilePrintForm.add_whitespace;
  options.always_print_primitive_fields =
      kTuningFilePrintForm.always_print_primitive_fields;
  options.always_print_enums_as_ints =
      kTuningFilePrintForm.always_print_enums_as_ints;
  options.preserve_proto_field_names =
      kTuningFilePrintForm.preserve_proto_field_names;
  return options;
}

// Unknown fields and enum names in other letter case are errors.
inline google::protobuf::util::JsonParseOptions TuningFileParseOptions() {
  google::protobuf::util::JsonParseOptions options;
  options.ignore_unknown_fields = false;
  options.case_insensitive_enum_parsing = false;
  return options;
}

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_JSON_OPTIONS_H_
