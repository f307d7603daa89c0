#include "app/reader_app.h"

#include "app/main_frame.h"
#include "results/engine_books.h"

namespace {
CVekWinApp* theApp = nullptr;  // the one application object
}  // namespace

CVekWinApp::CVekWinApp(CString name) : appName(std::move(name)) { theApp = this; }

CVekWinApp::~CVekWinApp() {
  if (theApp == this) theApp = nullptr;
}

CVekWinApp* GetApp() { return theApp; }

void CVekWinApp::ParseCommandLine(const CString& commandLine) {
  const int blank = commandLine.Find(u' ');
  startCode = WideToLong(commandLine.Left(blank));
  if (startCode == -1) {
    taskWnd = 0;
    return;
  }
  taskWnd = static_cast<HWND>(WideToLong(commandLine.Mid(blank + 1)));
}

bool CVekWinApp::Start(const CString& commandLine) {
  ParseCommandLine(commandLine);
  return InitInstance();
}

CReaderApp::CReaderApp(CString name) : CVekWinApp(std::move(name)) {}

CReaderApp::~CReaderApp() {
  mainWnd = nullptr;
  frame.reset();
}

bool CReaderApp::InitInstance() {
  if (!frame) {
    books = std::make_unique<EngineBooks>();
    frame = std::make_unique<CMainFrame>(*books);
  }
  mainWnd = frame.get();
  if (!frame->CreateWindowObject()) {
    mainWnd = nullptr;
    return false;
  }
  return true;
}
