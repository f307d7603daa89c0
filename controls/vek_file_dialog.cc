#include "controls/vek_file_dialog.h"

#include "controls/jpn_data.h"

int CVekFileDialog::DoModal() {
  chosen_.clear();
  typed_.Empty();
  position_ = 0;
  return 2;
}

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
  if (data != nullptr && data->dwData == JPNDATA_COPYDATA_ID && data->cbData >= sizeof(_JPNDATA)) {
    typed_ += JpnDataText(static_cast<const _JPNDATA*>(data->lpData));
  }
  return 0;
}
