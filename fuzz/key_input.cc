#include "fuzz/key_input.h"

#include "app/frame_ids.h"
#include "platform/utf8_text.h"

namespace {

enum Operation {
  kNamedKey = 0,
  kKeyCode = 1,
  kTyped = 2,
  kCursor = 3,
  kMute = 4,
  kSetting = 5,
  kOptionWord = 6,
};

void add_text(std::string& bytes, const CString& text) {
  std::string utf8 = ToUtf8(text).substr(0, 255);
  bytes += static_cast<char>(kTyped);
  bytes += static_cast<char>(utf8.size());
  bytes += utf8;
}

void add_key(std::string& bytes, uint32_t code) {
  for (int i = 0; i < kKeyNameCount; ++i) {
    if (kKeyNames[i].code == code) {
      bytes += static_cast<char>(kNamedKey);
      bytes += static_cast<char>(i);
      return;
    }
  }
  bytes += static_cast<char>(kKeyCode);
  bytes += static_cast<char>(code >> 8 & 0xFF);
  bytes += static_cast<char>(code & 0xFF);
}

}  // namespace

const char* const kOptionForms[] = {"-O", "/O", "-N", "-F", "-G", "-$", "-o",
                                    "--", "-V", "-C", "-",  "/",  "0",  "12"};
const int kOptionFormCount = sizeof kOptionForms / sizeof kOptionForms[0];

std::vector<TaskAction> decode_key_input(const uint8_t* data, size_t size,
                                         const std::string& folder) {
  std::vector<TaskAction> actions;
  size_t at = 0;
  // Whether `count` more bytes are there.
  auto take = [&](size_t count) { return size - at >= count; };
  while (at < size) {
    const int operation = data[at++] % 8;
    TaskAction action;
    if (operation == kKeyCode) {
      if (!take(2)) break;
      action.number = static_cast<uint32_t>(data[at] << 8 | data[at + 1]);
      at += 2;
    } else if (operation == kTyped) {
      if (!take(1) || !take(1 + data[at])) break;
      const size_t length = data[at];
      action.kind = TaskAction::kText;
      action.text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data + at + 1), length));
      at += 1 + length;
    } else if (operation == kOptionWord) {
      if (!take(2) || !take(2 + data[at + 1])) break;
      const size_t length = data[at + 1];
      action.kind = TaskAction::kText;
      const int form = data[at] % kOptionFormCount;
      action.text = CString(kOptionForms[form]);
      if (form < kFileOptionForms) action.text += FromUtf8(folder + "/");
      action.text += FromUtf8(std::string_view(reinterpret_cast<const char*>(data + at + 2), length));
      at += 2 + length;
    } else if (operation == kCursor || operation == kMute) {
      if (!take(1)) break;
      action.kind = operation == kCursor ? TaskAction::kCursor : TaskAction::kMute;
      action.number = operation == kCursor ? data[at] : data[at] & 1;
      ++at;
    } else if (operation == kSetting) {
      if (!take(2)) break;
      action.kind = TaskAction::kSetting;
      action.number = data[at];
      action.value = data[at + 1];
      at += 2;
    } else {
      if (!take(1)) break;
      action.number = kKeyNames[data[at++] % kKeyNameCount].code;
    }
    actions.push_back(action);
  }
  return actions;
}

std::string encode_key_input(const std::vector<TaskAction>& actions) {
  std::string bytes;
  for (const TaskAction& action : actions) {
    switch (action.kind) {
      case TaskAction::kKey:
        add_key(bytes, action.number);
        break;
      case TaskAction::kText:
        add_text(bytes, action.text);
        break;
      case TaskAction::kChoose:
        add_text(bytes, action.text);
        add_key(bytes, CK_ENTER);
        break;
      case TaskAction::kCursor:
      case TaskAction::kMute:
        bytes += static_cast<char>(action.kind == TaskAction::kCursor ? kCursor : kMute);
        bytes += static_cast<char>(action.number & 0xFF);
        break;
      case TaskAction::kSetting:
        bytes += static_cast<char>(kSetting);
        bytes += static_cast<char>(action.number & 0xFF);
        bytes += static_cast<char>(action.value & 0xFF);
        break;
    }
  }
  return bytes;
}
