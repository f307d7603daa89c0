#include "taskman/keyboard_map.h"

#include "app/frame_ids.h"
#include "controls/control_keys.h"

const KeyboardKey kKeyboardKeys[] = {
    {"Up", "previous item or line", TaskAction::kKey, CK_PREV, u"上矢印", nullptr},
    {"Down", "next item or line", TaskAction::kKey, CK_NEXT, u"下矢印", nullptr},
    {"PageUp", "previous item or line, as Up", TaskAction::kKey, CK_PREV_ALT, u"ページアップ",
     nullptr},
    {"PageDown", "next item or line, as Down", TaskAction::kKey, CK_NEXT_ALT, u"ページダウン",
     nullptr},
    {"Tab", "next control", TaskAction::kKey, KEY_NEXT_CTRL, u"タブ", u"次のコントロール"},
    {"Shift-Tab", "previous control", TaskAction::kKey, KEY_PREV_CTRL, u"シフトタブ",
     u"前のコントロール"},
    {"Enter", "activate, choose", TaskAction::kKey, CK_ENTER, u"エンター", u"決定"},
    {"Esc", "back", TaskAction::kKey, CK_BACK, u"エスケープ", u"戻る"},
    {"Ctrl-Q or F10", "exit; on the first screen: close, saving the settings", TaskAction::kKey,
     CK_EXIT, u"コントロールQ", u"終了、最初の画面では閉じる"},
    {"Ctrl-O or F2", "menu", TaskAction::kKey, KEY_MENU, u"コントロールO", u"メニュー"},
    {"Ctrl-E", "the edit field's own menu", TaskAction::kKey, CK_POPUP, u"コントロールE",
     nullptr},
    {"Ctrl-W", "close the edit field's menu", TaskAction::kKey, CK_POPUP_CLOSE, u"コントロールW",
     nullptr},
    {"Ctrl-Y", "yes", TaskAction::kKey, CK_YES, u"コントロールY", nullptr},
    {"Ctrl-V or F5", "next value of an option", TaskAction::kKey, CK_NEXT_VALUE,
     u"コントロールV", nullptr},
    {"Left", "cursor one character back", TaskAction::kKey, CK_CHAR_LEFT, u"左矢印", nullptr},
    {"Right", "cursor one character on", TaskAction::kKey, CK_CHAR_RIGHT, u"右矢印", nullptr},
    {"Home", "cursor to the start of the line", TaskAction::kKey, CK_LINE_START, u"ホーム",
     nullptr},
    {"End", "cursor to the end of the line", TaskAction::kKey, CK_LINE_END, u"エンド", nullptr},
    {"Backspace", "delete before the cursor", TaskAction::kKey, CK_BACKSPACE, u"バックスペース",
     nullptr},
    {"Delete", "delete at the cursor", TaskAction::kKey, CK_DELETE, u"デリート", nullptr},
    {"F1", "help: the keys of the control in view, spoken in Japanese",
     TaskAction::kKey, CK_HELP, u"F1", u"ヘルプ"},
    {"?", "help too, where no text can be typed", TaskAction::kText, 0, nullptr, nullptr},
    {"F3 or Ctrl-P", "position in the list or text, e.g. 3/12", TaskAction::kKey, CK_POSITION,
     u"F3", u"位置"},
    {"F6 or Ctrl-R", "read the text aloud from the cursor's line", TaskAction::kReadAll, 0,
     u"F6", u"本文の読み上げ"},
    {"F7 or Ctrl-T", "stop reading; the cursor goes where the reading got to",
     TaskAction::kReadStop, 0, u"F7", u"読み上げの停止"},
    {"Ctrl-D", "leave at once, without saving", TaskAction::kKey, 0, nullptr, nullptr},
    {"other text", "typed into the focused field", TaskAction::kText, 0, nullptr, nullptr},
};
const int kKeyboardKeyCount = static_cast<int>(sizeof kKeyboardKeys / sizeof kKeyboardKeys[0]);

namespace {

// What --help puts behind a key's meaning: the code or message it gives.
std::string CodeOf(const KeyboardKey& key) {
  if (key.kind == TaskAction::kReadAll) return "WM_VEK_READ_ALL";
  if (key.kind == TaskAction::kReadStop) return "WM_VEK_READ_STOP";
  if (key.kind == TaskAction::kKey && key.code != 0) return std::to_string(key.code);
  return "";
}

}  // namespace

std::string KeyboardHelp() {
  std::string help;
  for (const KeyboardKey& key : kKeyboardKeys) {
    std::string line = std::string("  ") + key.keys;
    line.resize(18, ' ');
    line += key.meaning;
    const std::string code = CodeOf(key);
    if (!code.empty()) line += " [" + code + "]";
    help += line + "\n";
  }
  return help;
}

CString KeyboardGuide::KeyName(uint32_t code) const {
  for (const KeyboardKey& key : kKeyboardKeys)
    if (key.kind == TaskAction::kKey && key.code == code && key.spoken != nullptr) return key.spoken;
  return CString();
}

std::vector<NamedKey> KeyboardGuide::CommonKeys() const {
  std::vector<NamedKey> keys;
  for (const KeyboardKey& key : kKeyboardKeys)
    if (key.common != nullptr) keys.push_back({key.spoken, key.common});
  return keys;
}
