// The steps of a graph window: its whole state after each change, back and forth. The state is
// small; what the main window's history holds is the outcome of OK.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

template <class State>
class EditSteps {
 public:
  // The window opened: no step lies behind `state`.
  void begin(State state) {
    now_ = std::move(state);
    done_.clear();
    undone_.clear();
  }
  // After a gesture; a state like the one before it is no step.
  void settle(State state) {
    if (state == now_) return;
    if (done_.size() == mostSteps) done_.erase(done_.begin());
    done_.push_back(std::exchange(now_, std::move(state)));
    undone_.clear();
  }
  // The state to show now; nothing at the end of the steps.
  std::optional<State> undo() { return move(done_, undone_); }
  std::optional<State> redo() { return move(undone_, done_); }

 private:
  static constexpr std::size_t mostSteps = 1000;
  std::optional<State> move(std::vector<State>& from, std::vector<State>& to) {
    if (from.empty()) return std::nullopt;
    to.push_back(std::exchange(now_, std::move(from.back())));
    from.pop_back();
    return now_;
  }

  State now_{};
  std::vector<State> done_, undone_;
};
