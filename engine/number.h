// The one number syntax of the engine: options, environment variables and
// file tables all go through parse_number.
#ifndef ENGINE_NUMBER_H_
#define ENGINE_NUMBER_H_

#include <cstdint>

// Leading white space, an optional '-', then 0x.. hexadecimal, 0.. octal or
// decimal digits. No digit gives 0. Sets engine.number_end to where reading
// stopped. Accumulates in 32 bits without an overflow check.
int32_t parse_number(const char* text);

// Turns '\' into '/' unless DF_NO_BACKSLASH is set, and makes the path end
// in '/'. `path` holds kPathSize bytes.
void normalize_drive(char* path);

#endif  // ENGINE_NUMBER_H_
