// The progress bar of a pass over many records: told of every record, it moves the bar only when
// the percentage changes, so that telling costs nothing.
#pragma once

#include <cstdint>

#include "core/progress.h"

class ProgressSteps {
 public:
  // The bar is full at `total`, which is greater than 0.
  explicit ProgressSteps(std::int64_t total) : total_(total) {}

  void reached(std::int64_t done) {
    if (done < next_) return;
    setProgressOf(done, total_);
    const std::int64_t percent = done * 100 / total_ + 1;
    next_ = (percent * total_ + 99) / 100;
  }

 private:
  std::int64_t total_;
  std::int64_t next_ = 0;
};
