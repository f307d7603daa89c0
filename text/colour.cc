// Attributes as terminal colour sequences (DF_COLOUR). The state last
// written is kept in engine.shown_attribute for the whole process, so a
// sequence goes out only when the attributes change.
#include <cstdio>

#include "engine/engine_state.h"
#include "text/decoder.h"

namespace {

// The sequence parameter of each coloured attribute, in the order written.
struct ColourParameter {
  uint32_t attribute;     // a TA_* bit
  const char* parameter;  // its parameter of ESC [ ... m
};

constexpr ColourParameter kColourParameters[] = {
    {TA_SUPER, "2"},
    {TA_SUB, "4"},
    {TA_BOLD, "7"},
    {TA_ITALIC, "33"},
};

}  // namespace

void cdattr(uint32_t attribute) {
  // A half-width run has no colour of its own.
  int32_t coloured = static_cast<int32_t>(attribute & (TA_SUPER | TA_SUB | TA_BOLD | TA_ITALIC));
  if (coloured == engine.shown_attribute) return;
  engine.shown_attribute = coloured;
  fputs("\x1b[", engine.output);
  const char* separator = "";
  for (const ColourParameter& entry : kColourParameters) {
    if (!(coloured & entry.attribute)) continue;
    fprintf(engine.output, "%s%s", separator, entry.parameter);
    separator = ";";
  }
  fputc('m', engine.output);
}
