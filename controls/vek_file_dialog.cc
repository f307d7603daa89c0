#include "controls/vek_file_dialog.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "controls/beep_request.h"
#include "controls/control_keys.h"
#include "controls/jpn_data.h"
#include "controls/key_help.h"
#include "controls/presenter.h"
#include "controls/spoken_text.h"
#include "platform/utf8_text.h"
#include "platform/device_path.h"

namespace {

constexpr char16_t kChooseThisFolder[] = u"このフォルダを選択";
constexpr char16_t kNoSuchFolder[] = u"フォルダがありません";
constexpr char16_t kPathTooLong[] = u"パスが長すぎます";
// Where the run opens when it is given no folder.
constexpr char16_t kCardTop[] = u"\\SD";

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;

bool IsSeparator(char16_t unit) { return unit == u'\\' || unit == u'/'; }

// `path` as one device name: "\" and "/" both separate, empty parts and
// "." go, ".." takes the part before it away (never the first one), and
// the name starts with "\" and has none at its end.
CString NormalPath(const CString& path) {
  CStringArray parts;
  int at = 0;
  while (at < path.GetLength()) {
    int end = at;
    while (end < path.GetLength() && !IsSeparator(path[end])) ++end;
    const CString part = path.Mid(at, end - at);
    if (part == CString(u"..")) {
      if (parts.size() > 1) parts.pop_back();
    } else if (!part.IsEmpty() && part != CString(u".")) {
      parts.push_back(part);
    }
    at = end + 1;
  }
  CString name;
  for (const CString& part : parts) name += u"\\" + part;
  return name.IsEmpty() ? CString(kCardTop) : name;
}

// The first part of a normal path: the top the user can walk up to.
CString TopOf(const CString& path) {
  const int second = path.Find(u'\\', 1);
  return second < 0 ? path : path.Left(second);
}

CString ParentOf(const CString& path) { return path.Left(path.ReverseFind(u'\\')); }

bool IsFolder(const CString& path) {
  std::error_code error;
  return std::filesystem::is_directory(HostPath(path), error);
}

// The subfolders of `path` by name, with the folders mounted in it; hidden
// ones (".name") are left out, and a mounted folder shows once.
CStringArray SubfoldersOf(const CString& path) {
  CStringArray names;
  const std::vector<std::string> mounted = MountedFolderNames(path);
  for (const std::string& name : mounted) names.push_back(FromUtf8(name));
  std::error_code error;
  std::filesystem::directory_iterator entries(HostPath(path), error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    const std::string name = entries->path().filename().string();
    std::error_code kindError;
    if (name.empty() || name[0] == '.' || !entries->is_directory(kindError)) continue;
    // A folder mounted under the same name hides the card's own.
    if (!mounted.empty() && HostPath(path + u"\\" + FromUtf8(name)) != entries->path().string())
      continue;
    names.push_back(FromUtf8(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

void CVekFileDialog::SetInitDlg(HWND taskWnd, CString mode, int flags) {
  taskWnd_ = taskWnd;
  mode_ = mode;
  flags_ = flags;
}

void CVekFileDialog::SetInitPath(const char16_t* path, unsigned maxLength) {
  initPath_ = CString(path);
  maxLength_ = maxLength;
}

CString CVekFileDialog::GetPathName() const {
  return position_ < chosen_.size() ? chosen_[position_] : CString();
}

int CVekFileDialog::OnCopyData(CWnd*, tagCOPYDATASTRUCT* data) {
  if (data == nullptr || data->dwData != JPNDATA_COPYDATA_ID || data->cbData < sizeof(_JPNDATA))
    return 0;
  const CString typed = JpnDataText(static_cast<const _JPNDATA*>(data->lpData));
  // "?" alone, which no folder name is, asks for the help.
  if (typed_.IsEmpty() && (typed == CString(u"?") || typed == CString(u"？"))) {
    PresentHelp();
  } else {
    typed_ += typed;
  }
  return 0;
}

// A start folder that isn't there opens at its nearest folder that is.
int CVekFileDialog::DoModal() {
  chosen_.clear();
  typed_.Empty();
  position_ = 0;
  if (!CreateWindowObject()) return IDCANCEL;
  SendMessage(mainWnd_, WM_VEK_SET_MODAL, reinterpret_cast<WPARAM>(static_cast<CWnd*>(this)), 0);
  TakeFocus();
  CString start = NormalPath(initPath_);
  while (!IsFolder(start) && start != TopOf(start)) start = ParentOf(start);
  EnterFolder(start, CString());
  RunModalLoop();
  SendMessage(mainWnd_, WM_VEK_CLEAR_MODAL, 0, 0);
  DestroyWindow();
  folder_.Empty();
  subfolders_.clear();
  return chosen_.empty() ? IDCANCEL : IDOK;
}

LRESULT CVekFileDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_VEK_KEY_MODAL:
      OnKey(static_cast<uint32_t>(wParam));
      return 0;
    case WM_VEK_CURSOR_MODAL:
      Present(false);
      return 0;
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}

void CVekFileDialog::OnKey(uint32_t key) {
  const int last = static_cast<int>(subfolders_.size());
  if (key == CK_ENTER && !typed_.IsEmpty()) {
    GoToTyped();
  } else if (IsPrevKey(key) || IsNextKey(key)) {
    const int to = item_ + (IsNextKey(key) ? 1 : -1);
    if (to < 0 || to > last) RequestBeep(taskWnd_, mainWnd_, CONTROL_BEEP_CODE);
    item_ = std::clamp(to, 0, last);
    Present(false);
  } else if (key == CK_POSITION) {
    PresentPosition(item_ + 1, last + 1);
  } else if (key == CK_HELP) {
    PresentHelp();
  } else if (key == CK_ENTER && item_ > 0) {
    EnterFolder(folder_ + u"\\" + subfolders_[item_ - 1], CString());
  } else if (key == CK_ENTER) {
    Choose(folder_);
  } else if (key == CK_YES) {
    Choose(item_ > 0 ? folder_ + u"\\" + subfolders_[item_ - 1] : folder_);
  } else if (key == CK_BACK && folder_ != TopOf(folder_)) {
    const CString left = folder_.Mid(folder_.ReverseFind(u'\\') + 1);
    EnterFolder(ParentOf(folder_), left);
  } else if (key == CK_BACK || key == CK_EXIT) {
    End();
  } else {
    Present(false);
  }
  typed_.Empty();
}

void CVekFileDialog::EnterFolder(const CString& folder, const CString& select) {
  folder_ = folder;
  subfolders_ = SubfoldersOf(folder);
  const auto found = std::find(subfolders_.begin(), subfolders_.end(), select);
  item_ = found == subfolders_.end() ? 0 : static_cast<int>(found - subfolders_.begin()) + 1;
  Present(true);
}

void CVekFileDialog::Present(bool withFolder) {
  const CString item = item_ > 0 ? subfolders_[item_ - 1] : CString(kChooseThisFolder);
  const CString line = folder_ + u" " + item;
  CurrentPresenter().ShowBraille(line);
  CurrentPresenter().Speak(withFolder ? SpokenPath(folder_) + u" " + item : item, false);
}

std::vector<KeyHelp> CVekFileDialog::HelpKeys() const {
  return {{CK_PREV, u"前の項目"},
          {CK_NEXT, u"次の項目"},
          {CK_ENTER, u"フォルダに入る、このフォルダを選択で選ぶ"},
          {CK_YES, u"項目のフォルダを選ぶ"},
          {CK_BACK, u"上のフォルダへ"},
          {CK_EXIT, u"選ばずに閉じる"}};
}

void CVekFileDialog::Say(const CString& text) {
  CurrentPresenter().ShowBraille(text);
  CurrentPresenter().Speak(text, false);
}

void CVekFileDialog::Choose(const CString& path) {
  if (!IsFolder(path)) {
    CurrentPresenter().ShowBraille(CString(kNoSuchFolder) + u" " + path);
    CurrentPresenter().Speak(CString(kNoSuchFolder) + u" " + SpokenPath(path), false);
  } else if (maxLength_ != 0 && static_cast<unsigned>(path.GetLength()) >= maxLength_) {
    Say(kPathTooLong);
  } else {
    chosen_.assign(1, path);
    End();
  }
}

void CVekFileDialog::GoToTyped() {
  const bool fromTop = IsSeparator(typed_[0]);
  Choose(NormalPath(fromTop ? typed_ : folder_ + u"\\" + typed_));
}

void CVekFileDialog::End() { EndModalLoop(chosen_.empty() ? IDCANCEL : IDOK); }
