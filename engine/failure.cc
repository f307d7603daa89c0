#include "engine/failure.h"

#include "engine/engine_state.h"

void engine_fail(int number) {
  ++engine.failure_count;
  fprintf(engine.std_out, "error %d.\n", number);
}
