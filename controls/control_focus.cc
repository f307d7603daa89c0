#include "controls/control_focus.h"

namespace {
FocusTaker* inFocus = nullptr;
}  // namespace

FocusTaker::~FocusTaker() {
  if (inFocus == this) inFocus = nullptr;
}

void FocusTaker::TakeFocus() { inFocus = this; }

bool FocusTaker::HasFocus() const { return inFocus == this; }

FocusTaker* ControlInFocus() { return inFocus; }
