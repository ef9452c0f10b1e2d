#pragma once

#include <exception>
#include <utility>

#include "rom/RuntimeError.h"
#include "ui/Prompter.h"

namespace kartova {

// Shows a runtime error the way the editor always has: the German runtime message in a plain
// box with an OK button.
void ShowRuntimeError(Prompter& prompter, const RuntimeError& error);
// For anything else that escapes a handler; no exception may unwind through Qt's event loop.
void ShowUnexpectedError(Prompter& prompter, const std::exception& error);

// Runs one ui handler. A runtime error ends the handler where it was raised (whatever the
// handler changed before stays changed), is shown, and the program goes on. Returns false
// when the handler was ended that way.
template <class Handler>
bool RunGuarded(Prompter& prompter, Handler&& handler) {
  try {
    std::forward<Handler>(handler)();
    return true;
  } catch (const RuntimeError& error) {
    ShowRuntimeError(prompter, error);
  } catch (const std::exception& error) {
    ShowUnexpectedError(prompter, error);
  }
  return false;
}

}  // namespace kartova
