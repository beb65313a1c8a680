#include <google/protobuf/arena.h>

#include <memory>
#include <string>

#include "bench/bench_tables.h"
#include "bench/registration.h"
#include "protomsg/record_conversions.h"

namespace q3a_bench {
namespace {

using google::protobuf::Arena;

template <typename Table>
std::string WireBytes(const Table& table) {
  typename TableTraits<Table>::Message message;
  protomsg::ConvertToMessage(table, message);
  return message.SerializeAsString();
}

template <typename Table>
void RegisterFor(Content content) {
  using Message = typename TableTraits<Table>::Message;

  Register(BenchmarkName<Table>("to_message_heap", content),
           [content](benchmark::State& state) {
             const Table& table = TableContent<Table>(content);
             for (auto _ : state) {
               Message message;
               protomsg::ConvertToMessage(table, message);
               benchmark::DoNotOptimize(&message);
             }
           });
  Register(BenchmarkName<Table>("to_message_arena", content),
           [content](benchmark::State& state) {
             const Table& table = TableContent<Table>(content);
             for (auto _ : state) {
               Arena arena;
               auto* message = Arena::CreateMessage<Message>(&arena);
               protomsg::ConvertToMessage(table, *message);
               benchmark::DoNotOptimize(message);
             }
           });
  Register(BenchmarkName<Table>("to_struct", content),
           [content](benchmark::State& state) {
             Message message;
             message.ParseFromString(WireBytes(TableContent<Table>(content)));
             auto record = std::make_unique<Table>();
             for (auto _ : state) {
               protomsg::ConvertToStruct(message, *record);
               benchmark::DoNotOptimize(record.get());
             }
           });

  // Protobuf's parse builds the same message tree from the wire bytes.
  Register(BenchmarkName<Table>("parse_heap", content),
           [content](benchmark::State& state) {
             const std::string bytes = WireBytes(TableContent<Table>(content));
             for (auto _ : state) {
               Message message;
               benchmark::DoNotOptimize(message.ParseFromString(bytes));
             }
           });
  Register(BenchmarkName<Table>("parse_arena", content),
           [content](benchmark::State& state) {
             const std::string bytes = WireBytes(TableContent<Table>(content));
             for (auto _ : state) {
               Arena arena;
               auto* message = Arena::CreateMessage<Message>(&arena);
               benchmark::DoNotOptimize(message->ParseFromString(bytes));
             }
           });
}

}  // namespace

void RegisterConversionBenchmarks() {
  ForEachTableAndContent(
      []<typename Table>(Content content) { RegisterFor<Table>(content); });
}

}  // namespace q3a_bench
