// System calls that fail or end the process at a chosen moment. The calls that saving makes are
// taken over by name and passed on to the C library.
#pragma once

#include <functional>

namespace failing_calls {

// Runs `body` with `strike` at the call behind the first `calls`: it gives the error that the call
// fails with, 0 lets it pass. False when `body` made fewer.
bool struck(int calls, std::function<int()> strike, const std::function<void()>& body);
// For a strike: it strikes once more behind `calls` others.
void strikeAgain(int calls);

// Whether files can have second names; some file systems hold none.
extern bool linksWork;

// Runs `body` in a process of its own and gives its exit code.
int inChild(const std::function<int()>& body);

}  // namespace failing_calls
