#include "text/gaiji.h"

// No record but the end record: code 0xFFFF (little-endian) and an empty text.
const unsigned char empty_gaiji_table[4] = {0xFF, 0xFF, 0x00, 0x00};
