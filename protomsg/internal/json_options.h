// The JSON options of the tuning files, in one place for every caller that
// hands a tuning file to protobuf's JSON functions: the library's readers and
// writers, the tool, the table generator, the benchmarks and the fuzzers.
#ifndef PROTOMSG_INTERNAL_JSON_OPTIONS_H_
#define PROTOMSG_INTERNAL_JSON_OPTIONS_H_

#include <google/protobuf/util/json_util.h>

namespace protomsg::internal {

// Indented, every scalar printed even when 0, enum values by name, the
// schema's snake_case field names.
inline google::protobuf::util::JsonPrintOptions TuningFilePrintOptions() {
  google::protobuf::util::JsonPrintOptions options;
  options.add_whitespace = true;
  options.always_print_primitive_fields = true;
  options.always_print_enums_as_ints = false;
  options.preserve_proto_field_names = true;
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
