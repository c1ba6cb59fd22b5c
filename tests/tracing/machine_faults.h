#pragma once
// Real faults, out of sight of optimizers and sanitizers.

#include <functional>
#include <string>

namespace canvas::tracing {

void writeThroughNull();
void divideByZero();
void executeNonsense();
void hitBreakpoint();
/// Calls itself, without procedures, until the stack is used up.
void overflowStack();

/// Runs `body` in a process of its own, and gives the status that wait() tells. A body that ends gives the exit
/// code 0.
int statusOfChild(const std::function<void()>& body);

/// "exit 42" or "signal 11".
std::string ending(int status);

}  // namespace canvas::tracing
