// Edits in place that never lose another's edit. A command that reads a file
// and writes it back holds an EditLock from before the read until after the
// replacement: a second tool run editing the same file waits, then reads the
// file the first one wrote. The stamp taken under the lock lets the output
// routine refuse to replace a file that another program (an editor) changed
// meanwhile without taking the lock.
#ifndef TOOLS_Q3A_TUNING_IO_EDIT_LOCK_H_
#define TOOLS_Q3A_TUNING_IO_EDIT_LOCK_H_

#include <sys/types.h>

#include <ctime>
#include <optional>
#include <string>

#include "tools/q3a_tuning/io/tool_error.h"

namespace q3a_tool {

// Which file a path names and what state it is in: a replacement changes the
// inode, a write in place the size or the modification time.
struct FileStamp {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  timespec modified{};

  bool operator==(const FileStamp& other) const;
};

// The stamp of the file `path` names (links followed); nullopt if there is
// none.
std::optional<FileStamp> StampOf(const std::string& path);

class EditLock {
 public:
  // Waits for an exclusive lock on the file `path` names. The lock is on the
  // file, and the rename that replaces a file makes a new one: so after the
  // wait, the lock is taken again should the path name another file by
  // then. Fails (exit 2) for a path that cannot be opened for reading. On a
  // file system without locks the stamp alone guards the edit.
  static Result<EditLock> Acquire(const std::string& path);

  EditLock(EditLock&& other) noexcept;
  EditLock& operator=(EditLock&&) = delete;
  ~EditLock();

  // The locked file as it was when the lock was taken.
  const FileStamp& stamp() const { return stamp_; }

 private:
  EditLock(int fd, const FileStamp& stamp) : fd_(fd), stamp_(stamp) {}

  int fd_;
  FileStamp stamp_;
};

}  // namespace q3a_tool

#endif  // TOOLS_Q3A_TUNING_IO_EDIT_LOCK_H_
