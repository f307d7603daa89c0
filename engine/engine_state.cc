#include "engine/engine_state.h"

namespace {

EngineState initial_state() {
  EngineState state{};
  state.shown_attribute = -1;  // the first colour sequence is always written
  state.std_in = stdin;
  state.std_out = stdout;
  state.std_err = stderr;
  state.output = stdout;
  return state;
}

}  // namespace

EngineState engine = initial_state();
