// The frame's beep request (CMainFrame::NotifyBeep): the record and its
// reading are the controls' (controls/beep_request.h), since the controls
// ask the task manager for beeps of their own in the same way.
#ifndef APP_NOTIFY_BEEP_H_
#define APP_NOTIFY_BEEP_H_

#include "controls/beep_request.h"

#endif  // APP_NOTIFY_BEEP_H_
