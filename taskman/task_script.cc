#include "taskman/task_script.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <thread>

#include "app/frame_ids.h"
#include "controls/control_keys.h"
#include "braille/kana_keyboard.h"
#include "taskman/task_manager.h"
#include "platform/utf8_text.h"

const KeyName kKeyNames[] = {
    {"KEY_OPTION_VALUE", CK_NEXT_VALUE}, {"KEY_OPTION_UP", CK_PREV},
    {"KEY_PREV_CTRL", KEY_PREV_CTRL},    {"KEY_EDIT_POPUP", CK_POPUP},
    {"KEY_OPTION_DOWN", CK_NEXT},        {"KEY_MENU", KEY_MENU},
    {"KEY_BACK", CK_BACK},               {"KEY_EDIT_CLOSE", CK_POPUP_CLOSE},
    {"KEY_NEXT_CTRL", KEY_NEXT_CTRL},    {"KEY_EXIT", CK_EXIT},
    {"KEY_YES", CK_YES},                 {"KEY_ENTER", CK_ENTER},
    // The controls' own keys that every control answers.
    {"KEY_HELP", CK_HELP},               {"KEY_POSITION", CK_POSITION},
};
const int kKeyNameCount = static_cast<int>(sizeof kKeyNames / sizeof kKeyNames[0]);

std::string ScriptKeyHelp() {
  std::string help = "Key names in scripts, with their codes:\n";
  std::string line = " ";
  for (int i = 0; i < kKeyNameCount; ++i) {
    const std::string entry = std::string(" ") + kKeyNames[i].name + " " +
                              std::to_string(kKeyNames[i].code) + (i + 1 < kKeyNameCount ? "," : "");
    if (line.size() + entry.size() > 78) {
      help += line + "\n";
      line = " ";
    }
    line += entry;
  }
  return help + line + "\n";
}

namespace {

const char kBlanks[] = " \t\r";

std::string Trim(const std::string& text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// A whole decimal number within [low, high].
bool ReadNumber(const std::string& text, long long low, long long high, long long& number) {
  if (text.empty()) return false;
  char* end = nullptr;
  errno = 0;
  number = std::strtoll(text.c_str(), &end, 10);
  return errno == 0 && *end == '\0' && number >= low && number <= high;
}

// The words of `text` split at blanks.
std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  size_t at = 0;
  while ((at = text.find_first_not_of(kBlanks, at)) != std::string::npos) {
    const size_t end = text.find_first_of(kBlanks, at);
    words.push_back(text.substr(at, end - at));
    at = end;
  }
  return words;
}

// One action from a trimmed line that is not empty or a comment; an empty
// result on success, else what is wrong.
std::string ParseAction(const std::string& line, TaskAction& action) {
  const size_t blank = line.find_first_of(kBlanks);
  const std::string verb = line.substr(0, blank);
  const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
  const std::vector<std::string> args = Words(rest);
  long long number = 0;
  if (verb == "text") {
    if (rest.empty()) return "text needs the text to type";
    action.kind = TaskAction::kText;
    action.text = FromUtf8(rest);
  } else if (verb == "choose") {
    if (Trim(rest).empty()) return "choose needs a folder";
    action.kind = TaskAction::kChoose;
    action.text = FromUtf8(Trim(rest));
  } else if (verb == "cursor") {
    if (args.size() != 1 || !ReadNumber(args[0], 0, UINT32_MAX, number))
      return "cursor needs one cell number";
    action.kind = TaskAction::kCursor;
    action.number = static_cast<uint32_t>(number);
  } else if (verb == "setting") {
    long long value = 0;
    if (args.size() != 2 || !ReadNumber(args[0], 0, UINT32_MAX, number) ||
        !ReadNumber(args[1], INT32_MIN, INT32_MAX, value))
      return "setting needs a setting number and a value";
    action.kind = TaskAction::kSetting;
    action.number = static_cast<uint32_t>(number);
    action.value = static_cast<int32_t>(value);
  } else if (verb == "readall") {
    if (!args.empty()) return "readall takes nothing";
    action.kind = TaskAction::kReadAll;
  } else if (verb == "readstop") {
    if (args.size() != 1 || !ReadNumber(args[0], 0, UINT32_MAX, number))
      return "readstop needs the offset reached";
    action.kind = TaskAction::kReadStop;
    action.number = static_cast<uint32_t>(number);
  } else if (verb == "dots") {
    if (args.empty()) return "dots needs the dots of each cell, such as 136";
    action.kind = TaskAction::kDots;
    for (const std::string& cell : args) {
      uint8_t dots = 0;
      if (!ParseDots(cell, dots)) return "\"" + cell + "\" is no cell: dot numbers 1 to 8, or 0";
      action.text += static_cast<char16_t>(dots);
    }
  } else if (verb == "pause") {
    if (args.size() != 1 || !ReadNumber(args[0], 0, 10000, number))
      return "pause needs a number of milliseconds up to 10000";
    action.kind = TaskAction::kPause;
    action.number = static_cast<uint32_t>(number);
  } else if (verb == "mute") {
    if (args.size() != 1 || !ReadNumber(args[0], 0, 1, number)) return "mute needs 0 or 1";
    action.kind = TaskAction::kMute;
    action.number = static_cast<uint32_t>(number);
  } else {
    if (!args.empty()) return "unknown action \"" + verb + "\"";
    action.kind = TaskAction::kKey;
    if (ReadNumber(verb, 0, UINT32_MAX, number)) {
      action.number = static_cast<uint32_t>(number);
      return "";
    }
    for (int i = 0; i < kKeyNameCount; ++i) {
      if (verb == kKeyNames[i].name) {
        action.number = kKeyNames[i].code;
        return "";
      }
    }
    return "unknown key \"" + verb + "\"";
  }
  return "";
}

}  // namespace

bool ParseTaskScript(const std::string& script, std::vector<TaskAction>& actions,
                     std::string& error) {
  size_t start = 0;
  for (int lineNumber = 1; start < script.size(); ++lineNumber) {
    size_t end = script.find('\n', start);
    if (end == std::string::npos) end = script.size();
    const std::string line = Trim(script.substr(start, end - start));
    start = end + 1;
    if (line.empty() || line[0] == '#') continue;
    TaskAction action;
    const std::string problem = ParseAction(line, action);
    if (!problem.empty()) {
      error = "line " + std::to_string(lineNumber) + ": " + problem;
      return false;
    }
    actions.push_back(action);
  }
  return true;
}

void PerformTaskAction(CTaskManagerWnd& taskManager, const TaskAction& action) {
  switch (action.kind) {
    case TaskAction::kKey:
      taskManager.DeliverKey(action.number);
      break;
    case TaskAction::kText:
      taskManager.DeliverText(action.text);
      break;
    case TaskAction::kCursor:
      taskManager.DeliverCursor(action.number);
      break;
    case TaskAction::kSetting:
      taskManager.DeliverSetting(action.number, action.value);
      break;
    case TaskAction::kMute:
      taskManager.DeliverMute(action.number != 0);
      break;
    case TaskAction::kChoose:
      taskManager.AnswerFolderChooser(action.text);
      break;
    case TaskAction::kReadAll:
      taskManager.DeliverReadAll();
      break;
    case TaskAction::kReadStop:
      if (action.value < 0) {
        taskManager.DeliverReadStopWhereSpeechGot();
      } else {
        taskManager.DeliverReadStop(action.number);
      }
      break;
    case TaskAction::kDots:
      for (int i = 0; i < action.text.GetLength(); ++i)
        taskManager.DeliverDots(static_cast<uint8_t>(action.text[i]));
      break;
    case TaskAction::kPause:
      std::this_thread::sleep_for(std::chrono::milliseconds(action.number));
      break;
  }
}
