// Every AWB record with its interchange message, as a GoogleTest type list,
// so that typed tests run over all records.
#ifndef TESTS_SUPPORT_RECORD_PAIRS_H_
#define TESTS_SUPPORT_RECORD_PAIRS_H_

#include <gtest/gtest.h>

#include "protomsg/internal/message_for.h"
#include "protomsg/record_conversions.h"

namespace q3a_test {

template <typename R, typename M>
struct RecordPair {
  using Record = R;
  using Message = M;
};

template <typename First, typename... Rest>
struct DropFirst {
  using Types = ::testing::Types<Rest...>;
};

#define Q3A_TEST_RECORD_PAIR(Record, Message, FIELDS) \
  , ::q3a_test::RecordPair<::qawb::Record, ::qawb::tuning::Message>

using AllRecordPairs = DropFirst<
    void QAWB_SHARED_RECORDS(Q3A_TEST_RECORD_PAIR) QAWB_BASIC_TABLE_RECORDS(
        Q3A_TEST_RECORD_PAIR) QAWB_ADVANCE_TABLE_RECORDS(Q3A_TEST_RECORD_PAIR)
        QAWB_COLOR_CONTROL_TABLE_RECORDS(Q3A_TEST_RECORD_PAIR)
            QAWB_FEATURE_TABLE_RECORDS(Q3A_TEST_RECORD_PAIR)>::Types;

#undef Q3A_TEST_RECORD_PAIR

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

#endif  // TESTS_SUPPORT_RECORD_PAIRS_H_
