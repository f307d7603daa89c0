#include "engine/failure.h"

#include "engine/engine_state.h"

void engine_fail(int number) { fprintf(engine.std_out, "error %d.\n", number); }
