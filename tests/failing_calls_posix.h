// System calls that fail or end the process at a chosen moment. The calls that saving makes are
// taken over by name and passed on to the C library.
#pragma once

#include <functional>
#include <string>

namespace failing_calls {

constexpr int never = -1;

// How many calls pass until the one at which something happens.
extern int callsLeft;
// What happens then: gives the error that the call fails with; 0 lets it pass.
extern std::function<int()> atThatCall;
// The call that was struck: its name, "create" for an open that makes a file, "fsync folder".
extern std::string struckCall;

// Whether files can have second names; some file systems hold none.
extern bool linksWork;

// Runs `body` in a process of its own and gives its exit code.
int inChild(const std::function<int()>& body);

}  // namespace failing_calls
