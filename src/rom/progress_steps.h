// How far a pass over many records has come: told of every record, it tells on only when the
// percentage changes, so that telling costs nothing.
#pragma once

#include <cstdint>

// Who wants to know; null for nobody.
inline void (*onRecordsDone)(std::int64_t done, std::int64_t total) = nullptr;

class ProgressSteps {
 public:
  // The end is at `total`, which is greater than 0.
  explicit ProgressSteps(std::int64_t total) : total_(total) {}

  void reached(std::int64_t done) {
    if (done < next_ || !onRecordsDone) return;
    onRecordsDone(done, total_);
    const std::int64_t percent = done * 100 / total_ + 1;
    next_ = (percent * total_ + 99) / 100;
  }

 private:
  std::int64_t total_;
  std::int64_t next_ = 0;
};
