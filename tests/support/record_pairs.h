// Every AWB record with its interchange message, and the four table records,
// as GoogleTest type lists, so that typed tests run over all of them.
#ifndef TESTS_SUPPORT_RECORD_PAIRS_H_
#define TESTS_SUPPORT_RECORD_PAIRS_H_

#include <gtest/gtest.h>

#include "awb_records/tuning_tables.h"
#include "protomsg/internal/message_for.h"
#include "protomsg/record_conversions.h"

namespace q3a_test {

template <typename R, typename M>
struct RecordPair {
  using Record = R;
  using Message = M;
};

// A qawb::TypeList of records as GoogleTest types of record pairs.
template <typename List>
struct PairsOf;
template <typename... Records>
struct PairsOf<qawb::TypeList<Records...>> {
  using Types = ::testing::Types<RecordPair<
      Records, typename protomsg::internal::MessageFor<Records>::type>...>;
};

using AllRecordPairs = PairsOf<qawb::AllRecords>::Types;

template <typename List>
struct GTestTypes;
template <typename... Types>
struct GTestTypes<qawb::TypeList<Types...>> {
  using type = ::testing::Types<Types...>;
};

// The four table records, in the order of the tuning binary file.
using AllTables = GTestTypes<qawb::TuningTables>::type;

// The message type that carries record type R.
template <typename R>
using MessageOf = protomsg::internal::MessageFor<R>;

// Names typed test cases after the record, e.g. "QAWBGains".
struct RecordPairName {
  template <typename Pair>
  static std::string GetName(int) {
    return Pair::Message::descriptor()->name();
  }
};

}  // namespace q3a_test

// Declares the typed test suite Suite over every record pair, its cases
// named after the record.
#define Q3A_RECORD_PAIR_TEST_SUITE(Suite)  \
  template <typename Pair>                 \
  class Suite : public ::testing::Test {}; \
  TYPED_TEST_SUITE(Suite, q3a_test::AllRecordPairs, q3a_test::RecordPairName)

#endif  // TESTS_SUPPORT_RECORD_PAIRS_H_
