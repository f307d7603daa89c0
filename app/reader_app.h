// The application object: what the task manager starts. It reads the two
// numbers of its command line, makes the frame its main window and creates
// it; the message loop then runs until the frame is destroyed.
#ifndef APP_READER_APP_H_
#define APP_READER_APP_H_

#include <cstdint>
#include <memory>

#include "platform/wide_string.h"
#include "platform/window.h"

class Books;
class CMainFrame;

class CVekWinApp {
 public:
  // `appName` is the program's own name; one application object lives at
  // a time, and GetApp() gives it.
  explicit CVekWinApp(CString appName);
  CVekWinApp(const CVekWinApp&) = delete;
  CVekWinApp& operator=(const CVekWinApp&) = delete;
  virtual ~CVekWinApp();

  // "startCode taskWnd", two decimal numbers separated by a blank. The text
  // up to the first blank is startCode (0 when the line has no blank, and
  // then the whole line is the handle); a startCode of -1 means no task
  // manager, and taskWnd stays 0 whatever follows.
  void ParseCommandLine(const CString& commandLine);
  // Parses the command line and runs InitInstance; false when the
  // application could not start.
  bool Start(const CString& commandLine);
  virtual bool InitInstance() = 0;

  int32_t startCode = -1;     // first number of the command line; -1: no task manager
  HWND taskWnd = 0;           // the task manager's window; 0 when there is none
  CWnd* mainWnd = nullptr;    // the main window while it lives
  CString appName;            // the program's own name
};

// The application object of the process, or null.
CVekWinApp* GetApp();

class CReaderApp : public CVekWinApp {
 public:
  explicit CReaderApp(CString appName = u"epwingdict");
  ~CReaderApp() override;
  // Makes the frame over the real books (unless a frame was put in `frame`
  // beforehand) the main window and creates it; false when the creation
  // fails.
  bool InitInstance() override;

  std::unique_ptr<Books> books;       // the real books, when the application made the frame
  std::unique_ptr<CMainFrame> frame;  // the main frame, freed with the application
};

#endif  // APP_READER_APP_H_
