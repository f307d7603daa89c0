#include "engine/engine_state.h"

// Zero in the program image, so that no page of it is touched before it is
// used: most of the state is buffers that a run may never reach. The few
// fields that start otherwise are set before main.
EngineState engine;

namespace {

struct InitialState {
  InitialState() {
    engine.shown_attribute = -1;  // the first colour sequence is always written
    engine.std_in = stdin;
    engine.std_out = stdout;
    engine.std_err = stderr;
    engine.output = stdout;
  }
};

const InitialState initial_state;

}  // namespace
