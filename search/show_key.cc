// Printing JIS keys for the inspection dumps.
#include <cstring>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "search/inspection.h"
#include "text/decoder.h"

void cdshowjis(FILE* stream, const char* text) {
  if (engine.flags & DF_ENGLISH) {
    fputs(text, stream);
    return;
  }
  char shown[512];
  size_t used = 0;
  shown[0] = '\0';
  for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); p[0] != 0; p += 2) {
    used += cdputchar((p[0] << 8) | p[1], shown + used, sizeof shown - used);
    if (p[1] == 0 || used + 1 >= sizeof shown) break;
  }
  fprintf(stream, "%s", shown);
}

char* cdshowkey(int n) {
  // A key's length is one byte.
  static char key[256];
  for (int i = 0; i < n; ++i) key[i] = static_cast<char>(cdgetbyte());
  key[n] = '\0';
  cdshowjis(engine.std_out, key);
  return key;
}
