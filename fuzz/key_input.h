// The input of the key harness: the fuzzer's bytes as a run of actions of
// the task manager stand-in, one after the other. Each action is an
// operation byte and what it takes:
//
//   operation  bytes behind it     action
//   0, 7       name (1)            the key kKeyNames[name % kKeyNameCount]
//   1          code (2)            any key code, high byte first
//   2          length (1), text    typed text: `length` bytes of UTF-8
//   3          cell (1)            a cursor-routing key
//   4          flag (1)            speech of announcements off (odd) or on
//   5          number (1), value (1)  a device setting
//   6          form (1), length (1), text
//                                  typed text that the engine would take for
//                                  an option: kOptionForms[form % count],
//                                  for the forms that name a file the
//                                  decoder's folder and "/", then `length`
//                                  bytes of UTF-8
// The operation is the byte modulo 8. An action cut short by the end of
// the input is dropped, so every input means something.
#ifndef FUZZ_KEY_INPUT_H_
#define FUZZ_KEY_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "taskman/task_script.h"

// The beginnings of the words of operation 6: the first kFileOptionForms
// are options that name a file, then the prompt loop, listings, numbers.
extern const char* const kOptionForms[];
extern const int kOptionFormCount;
constexpr int kFileOptionForms = 7;

// The actions of `data`; the files that operation 6 names lie in `folder`.
std::vector<TaskAction> decode_key_input(const uint8_t* data, size_t size,
                                         const std::string& folder = ".");
// Bytes that decode to `actions`: a folder choice becomes its typed folder
// and CK_ENTER, typed text longer than 255 bytes is cut.
std::string encode_key_input(const std::vector<TaskAction>& actions);

#endif  // FUZZ_KEY_INPUT_H_
