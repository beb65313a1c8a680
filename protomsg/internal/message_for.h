// The message type that carries each record type, for generic code that
// needs to name it: MessageFor<qawb::QAWBGains>::type is
// qawb::tuning::QAWBGains.
#ifndef PROTOMSG_INTERNAL_MESSAGE_FOR_H_
#define PROTOMSG_INTERNAL_MESSAGE_FOR_H_

#include "protomsg/record_conversions.h"

namespace protomsg::internal {

template <typename R>
struct MessageFor;

#define PROTOMSG_INTERNAL_MESSAGE_FOR(Record, Message, FIELDS) \
  template <>                                                  \
  struct MessageFor<::qawb::Record> {                          \
    using type = ::qawb::tuning::Message;                      \
  };
QAWB_ALL_RECORDS(PROTOMSG_INTERNAL_MESSAGE_FOR)
#undef PROTOMSG_INTERNAL_MESSAGE_FOR

}  // namespace protomsg::internal

#endif  // PROTOMSG_INTERNAL_MESSAGE_FOR_H_
