// What a camera service needs of the loader beyond its results: its
// container outlives every exit-time destructor, and it reads files without
// putting table-sized records on the calling thread's stack.
#include <dlfcn.h>
#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

#include "coordinator/tuning_map.h"
#include "tests/loader/loader_test_fixture.h"

namespace {

// Every exit-time destructor the process registers, from its first static
// initialiser on: the library's calls bind to this definition, which records
// the object and hands the registration to the C++ runtime.
constexpr int kMaxRecorded = 4096;
std::atomic<int> recorded_count{0};
void* recorded_objects[kMaxRecorded];

}  // namespace

extern "C" __attribute__((visibility("default"))) int __cxa_atexit(
    void (*destructor)(void*), void* object, void* dso_handle) {
  using Register = int (*)(void (*)(void*), void*, void*);
  static const auto next =
      reinterpret_cast<Register>(dlsym(RTLD_NEXT, "__cxa_atexit"));
  const int slot = recorded_count.fetch_add(1);
  if (slot < kMaxRecorded) recorded_objects[slot] = object;
  return next(destructor, object, dso_handle);
}

namespace q3a_test {
namespace {

using q3a_coordinator::LoadQawbTuningFromFile;

bool RegisteredForExit(const void* object) {
  const int count = std::min(recorded_count.load(), kMaxRecorded);
  return std::find(recorded_objects, recorded_objects + count, object) !=
         recorded_objects + count;
}

TEST_F(LoaderTest, ContainerIsNeverDestroyed) {
  // The registry's maps are destroyed at exit, so their registration shows
  // that the library's registrations are seen at all.
  ASSERT_TRUE(RegisteredForExit(&q3a_coordinator::GetTuningMap()));

  const int before = recorded_count.load();
  const qawb::QAWBTuning* tuning = LoadQawbTuningFromFile(AllFiles(), &fixed_);
  ASSERT_NE(tuning, nullptr);
  EXPECT_FALSE(RegisteredForExit(tuning));
  EXPECT_EQ(recorded_count.load(), before);
}

// Runs `job` on a thread whose stack is painted beforehand and returns how
// many bytes of it the thread touched.
class StackMeter {
 public:
  static constexpr std::size_t kStackSize = 1 << 20;
  static constexpr unsigned char kPaint = 0xa5;

  std::size_t Measure(std::function<void()> job) {
    std::fill(stack_.get(), stack_.get() + kStackSize, kPaint);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, stack_.get(), kStackSize);
    pthread_t thread;
    const int created = pthread_create(
        &thread, &attributes,
        [](void* argument) -> void* {
          (*static_cast<std::function<void()>*>(argument))();
          return nullptr;
        },
        &job);
    pthread_attr_destroy(&attributes);
    if (created != 0) {
      ADD_FAILURE() << "pthread_create: " << created;
      return kStackSize;
    }
    pthread_join(thread, nullptr);
    return Touched();
  }

 private:
  // Stacks grow down on every architecture the library is built for.
  __attribute__((no_sanitize("address"))) std::size_t Touched() const {
    std::size_t untouched = 0;
    while (untouched < kStackSize && stack_[untouched] == kPaint) ++untouched;
    return kStackSize - untouched;
  }

  struct AlignedDelete {
    void operator()(unsigned char* p) const {
      ::operator delete[](p, std::align_val_t{64});
    }
  };
  std::unique_ptr<unsigned char[], AlignedDelete> stack_{
      new (std::align_val_t{64}) unsigned char[kStackSize]};
};

TEST_F(LoaderTest, ScratchTablesStayOffTheCallersStack) {
  StackMeter meter;
  const TableSet read = MakeTableSet(0, 0);
  const std::size_t readers = meter.Measure([&] {
    EXPECT_TRUE(protomsg::ReadQAWBAdvanceTuningTableWithJson(advance_path_,
                                                              *read.advance));
    EXPECT_TRUE(
        protomsg::ReadQAWBBasicTuningTableWithJson(basic_path_, *read.basic));
    EXPECT_TRUE(protomsg::ReadQAWBColorControlTuningTableWithJson(
        color_path_, *read.color_control));
    EXPECT_TRUE(protomsg::ReadQAWBFeatureTuningTableWithJson(feature_path_,
                                                              *read.feature));
  });
  const std::size_t loader = meter.Measure(
      [&] { EXPECT_NE(LoadQawbTuningFromFile(AllFiles(), &fixed_), nullptr); });

  ASSERT_EQ(lines_.size(), 4u) << "every file should have loaded";
  // The smallest table the loader reads is the advance table; logging and the
  // loader's own frames need far less.
  EXPECT_LT(loader, readers + sizeof(qawb::QAWBAdvanceTuningTable))
      << "the loader needs " << loader << " bytes of stack, its readers "
      << readers;
}

}  // namespace
}  // namespace q3a_test
