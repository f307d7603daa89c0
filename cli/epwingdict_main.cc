// epwingdict: the reader on a Linux terminal. A stand-in for the device's
// task manager starts the application and hands it keys: from the keyboard
// when standard input is a terminal, or from a key script (--keys). What
// the user would get on the Braille display and from speech comes out as
// lines: at the keyboard each presentation once, for a screen reader; with a
// key script the transcript (BRL, TTS, BEEP, STARTED, ENDED); and speech
// through speech-dispatcher or the espeak-ng library, which are given the
// reading of each text, when it is asked for.
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "app/reader_app.h"
#include "cli/card_setup.h"
#include "taskman/task_manager.h"
#include "taskman/task_script.h"
#include "taskman/keyboard_map.h"
#include "taskman/input_wait.h"
#include "taskman/terminal_keys.h"
#include "braille/braille_presenter.h"
#include "braille/brlapi_display.h"
#include "reading/reading.h"
#include "speech/espeak_channel.h"
#include "speech/speech_presenter.h"
#include "speech/speechd_channel.h"
#include "speech/reading_presenter.h"
#include "controls/language_file.h"
#include "controls/presenter_pair.h"
#include "terminal/console_lines.h"
#include "platform/device_path.h"
#include "platform/read_file.h"
#include "project_version.h"

namespace {

const char kUsage[] =
    "usage: epwingdict [--keys FILE|-] [--transcript FILE] [--card DIR] [--books DIR]...\n"
    "                  [--home DIR] [--speech speechd|espeak|none] [--show text|dots|transcript]\n"
    "                  [--dots] [--readings] [--braille brlapi|none]\n"
    "\n"
    "The Japanese dictionary reader, with the keyboard standing in for the Braille\n"
    "keyboard. What the Braille display shows and what is spoken come out as\n"
    "lines: at the keyboard each presentation once, as a screen reader wants it;\n"
    "with --keys as transcript lines \"BRL <text>\", \"TTS <text>\", \"BEEP <code>\",\n"
    "\"STARTED\", \"ENDED\" (see --show).\n"
    "\n"
    "  --keys FILE       run a key script (\"-\": standard input) instead of the\n"
    "                    keyboard: one action a line, \"#\" starts a comment:\n"
    "                      KEY_NAME or a decimal key code, e.g. KEY_NEXT_CTRL or 48\n"
    "                      text <UTF-8 text>   typed into the focused field\n"
    "                      cursor <n>          cursor-routing key on cell n\n"
    "                      setting <w> <l>     device setting w takes value l\n"
    "                      mute <0|1>          announcements silent (1) or not (0)\n"
    "                      choose <folder>     answer the open folder chooser: the\n"
    "                                          folder, relative to the one in view\n"
    "                                          or a device name from \"\\\", is\n"
    "                                          typed, then KEY_ENTER\n"
    "                      readall             read-all of the text in view\n"
    "                      readstop <n>        the reading stopped n characters on\n"
    "                      pause <ms>          wait that long (at most 10000 ms)\n"
    "                      dots <cell>...      cells typed on the Braille keyboard,\n"
    "                                          each as its dot numbers (136), 0 a blank\n"
    "                    The run ends when the reader closes (KEY_EXIT on the first\n"
    "                    screen saves the settings) or when the script ends, which\n"
    "                    saves nothing, as if the process were killed.\n"
    "  --transcript FILE write the lines to FILE (default: standard output)\n"
    "  --card DIR        the folder that stands for the SD card (default:\n"
    "                    $EPWINGDICT_CARD, else $XDG_DATA_HOME/epwingdict/card,\n"
    "                    made on first start with the demo dictionaries)\n"
    "  --books [NAME=]DIR  DIR appears on the card as the folder \\SD\\NAME (NAME:\n"
    "                    DIR's own name), where the folder chooser finds the\n"
    "                    dictionaries in it; repeatable. Default: the folders of\n"
    "                    $EPWINGDICT_BOOKS, separated by ':'\n"
    "  --home DIR        the program's folder, which holds epwingdict.ini\n"
    "                    (default: $XDG_CONFIG_HOME/epwingdict or ~/.config/epwingdict)\n"
    "  --speech MODE     speechd: speak through speech-dispatcher (the user's voice\n"
    "                    and rate), or through the espeak-ng library when it\n"
    "                    cannot be reached or goes away; espeak: the espeak-ng\n"
    "                    library (voice ja); none: no speech. A speech output\n"
    "                    that fails is told once on standard error. Default:\n"
    "                    speechd at the keyboard, none with --keys; speech is\n"
    "                    given the katakana reading of each text\n"
    "  --braille MODE    brlapi: the Braille line also goes to BRLTTY's display, as\n"
    "                    Japanese Braille cells (a display that cannot be used\n"
    "                    is told once on standard error and tried again every\n"
    "                    three seconds), and at the keyboard its\n"
    "                    keys, routing keys and Braille keyboard (kana in Japanese\n"
    "                    Braille) work too (man epwingdict: BRAILLE DISPLAY);\n"
    "                    none: the terminal only. Default: brlapi at the\n"
    "                    keyboard, none with --keys\n";

const char kKeyboardHeading[] =
    "\n"
    "Keyboard (when standard input is a terminal), the codes it gives in []:\n";

struct Options {
  std::string keys;        // script path, "-" for standard input; empty: keyboard
  std::string transcript;  // transcript path; empty: standard output
  std::string card;        // host folder of "\SD"
  std::string home;        // host folder of the program's folder
  std::string speech;      // "speechd", "espeak", "none", or empty for the default
  std::string braille;     // "brlapi", "none", or empty for the default
  std::vector<std::string> books;  // folders mounted on the card (--books)
  ConsoleOptions console;  // --show, --dots, --readings
};

int Fail(const std::string& message) {
  std::fprintf(stderr, "epwingdict: %s\nTry 'epwingdict --help'.\n", message.c_str());
  return 2;
}

// 0 when the options were read, else the exit code (-1: --help or --version shown).
int ReadOptions(int argc, char** argv, Options& options) {
  for (int i = 1; i < argc; ++i) {
    const std::string option = argv[i];
    if (option == "--help" || option == "-h") {
      std::fputs(kUsage, stdout);
      std::fputs(kConsoleOptionsHelp, stdout);
      std::fputs("  --help            this text\n  --version         the version\n", stdout);
      std::fputs(kKeyboardHeading, stdout);
      std::fputs((KeyboardHelp() + "\n" + ScriptKeyHelp()).c_str(), stdout);
      return -1;
    }
    if (option == "--version") {
      print_version("epwingdict");
      return -1;
    }
    if (option == "--books") {
      if (i + 1 >= argc || argv[i + 1][0] == '\0') return Fail(option + " needs a value");
      options.books.push_back(argv[++i]);
      continue;
    }
    std::string error;
    if (int read = ReadConsoleOption(argc, argv, i, options.console, error); read != 0) {
      if (read < 0) return Fail(error);
      continue;
    }
    std::string* target = option == "--keys"         ? &options.keys
                          : option == "--transcript" ? &options.transcript
                          : option == "--card"       ? &options.card
                          : option == "--home"       ? &options.home
                          : option == "--speech"     ? &options.speech
                          : option == "--braille"    ? &options.braille
                                                     : nullptr;
    if (target == nullptr) return Fail("unknown option '" + option + "'");
    if (i + 1 >= argc || argv[i + 1][0] == '\0') return Fail(option + " needs a value");
    *target = argv[++i];
  }
  if (!options.speech.empty() && options.speech != "speechd" && options.speech != "espeak" &&
      options.speech != "none")
    return Fail("--speech takes speechd, espeak or none, not '" + options.speech + "'");
  if (!options.braille.empty() && options.braille != "brlapi" && options.braille != "none")
    return Fail("--braille takes brlapi or none, not '" + options.braille + "'");
  if (options.keys.empty() && !isatty(STDIN_FILENO))
    return Fail("standard input is not a terminal: give a key script with --keys");
  return 0;
}

bool ReadScript(const std::string& path, std::string& script) {
  FILE* file = path == "-" ? stdin : std::fopen(path.c_str(), "rb");
  if (file == nullptr) return false;
  script = ReadToEnd(file);
  const bool failed = std::ferror(file) != 0;
  if (file != stdin) std::fclose(file);
  return !failed;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (int code = ReadOptions(argc, argv, options); code != 0) return code < 0 ? 0 : code;

  std::vector<TaskAction> script;
  if (!options.keys.empty()) {
    std::string text, error;
    if (!ReadScript(options.keys, text)) return Fail("cannot read the key script " + options.keys);
    if (!ParseTaskScript(text, script, error)) return Fail(options.keys + ": " + error);
  }
  std::string cardError;
  if (!SetUpCard(options.card, options.books, cardError)) return Fail(cardError);
  // The lines own standard output; the engine's own prints (its catalog
  // listing, its failure numbers), which reach no one on the device, go to
  // /dev/null.
  FILE* console = fdopen(dup(STDOUT_FILENO), "w");
  if (console == nullptr || std::freopen("/dev/null", "w", stdout) == nullptr)
    return Fail("cannot set up standard output");
  FILE* transcriptFile = console;
  if (!options.transcript.empty()) {
    transcriptFile = std::fopen(options.transcript.c_str(), "w");
    if (transcriptFile == nullptr) return Fail("cannot write the transcript " + options.transcript);
  }
  if (!options.home.empty()) SetDeviceFolder(DeviceFolder::kConfig, options.home);

  // At the keyboard the terminal shows the lines; a transcript file, when
  // one is asked for, gets them too.
  const bool interactive = options.keys.empty();
  ConsoleLines lines(console, transcriptFile, options.console, interactive);
  BraillePresenter braille(std::make_shared<BrlapiDisplay>(), BrailleCellsWithSources, stderr);
  if (options.braille == "brlapi" || (options.braille.empty() && interactive)) braille.Start();
  PresenterPair onDisplay(lines.presenter(), braille);
  Presenter& shown = onDisplay;
  // A speech server that goes away must not end the reader by SIGPIPE.
  signal(SIGPIPE, SIG_IGN);
  SpeechdChannel speechd;
  EspeakChannel espeak;
  const std::string speech = options.speech.empty() ? (interactive ? "speechd" : "none") : options.speech;
  std::vector<SpeechChannel*> channels;
  if (speech == "speechd") channels = {&speechd, &espeak};
  if (speech == "espeak") channels = {&espeak};
  SpeechPresenter speaking(channels, stderr);
  if (!channels.empty()) speaking.Start();
  ReadingPresenter readings(speaking);
  PresenterPair withSpeech(shown, readings);
  SetPresenter(channels.empty() ? &shown : static_cast<Presenter*>(&withSpeech));

  CTaskManagerWnd taskManager;
  for (TranscriptWriter* writer : lines.writers()) taskManager.AddTranscript(writer);
  if (!channels.empty()) taskManager.SetBeepSound([&](int32_t) { speaking.Beep(); });

  // At the keyboard, keys come from the terminal and from the display;
  // Ctrl-Z gives both back.
  std::unique_ptr<TerminalKeys> keyboard;
  std::unique_ptr<InputWait> input;
  size_t next = 0;
  if (interactive) {
    keyboard = std::make_unique<TerminalKeys>(STDIN_FILENO);
    input = std::make_unique<InputWait>(*keyboard, &braille);
    std::fputs("epwingdict: F1 tells the keys; Ctrl-Q closes (saving the settings).\n", console);
  }
  SetMessageSource([&]() {
    if (taskManager.AppEnded()) return false;
    TaskAction action;
    if (interactive) {
      if (!input->Next(action)) return false;
    } else {
      if (next >= script.size()) return false;
      action = script[next++];
    }
    PerformTaskAction(taskManager, action);
    return true;
  });

  int status = 0;
  {
    CReaderApp app(u"epwingdict");
    if (!taskManager.StartApplication(app)) {
      std::fputs("epwingdict: the reader could not start\n", stderr);
      status = 1;
    } else {
      RunMessageLoop();
    }
  }
  SetMessageSource(nullptr);
  SetPresenter(nullptr);
  input.reset();
  keyboard.reset();
  if (transcriptFile != console) std::fclose(transcriptFile);
  std::fclose(console);
  return status;
}
