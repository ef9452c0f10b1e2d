#pragma once

#include <utility>

namespace kartova {

// Runs a function when the scope ends, also when a runtime error unwinds it, so that the
// guard flags get their old values back however a handler ends.
template <class F>
class ScopeExit {
 public:
  explicit ScopeExit(F f) : f_(std::move(f)) {}
  ~ScopeExit() { f_(); }
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;

 private:
  F f_;
};

}  // namespace kartova
