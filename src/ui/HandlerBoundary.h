#pragma once

#include <exception>
#include <utility>

#include "rom/RuntimeError.h"
#include "ui/Prompter.h"

namespace kartova {

// The runtime message in the language of the ui (in German exactly the core's text), and the
// detailed text: what was being done on which file, and where in it ("Beim Lesen der Ortsnamen
// aus demo.gbc, Tabelle bei 0x092384" and the full path); empty when the error has no context.
QString RuntimeErrorText(const RuntimeError& error);
QString RuntimeErrorDetail(const RuntimeError& error);

// Shows a runtime error the way the editor always has: the runtime message in a plain box with
// an OK button; what was being done is its detailed text.
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
