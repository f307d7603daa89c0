#include "engine/book_end.h"

#include <cstdio>

#include "engine/engine_state.h"

int cdeof() { return engine.current_file == nullptr || feof(engine.current_file) ? 1 : 0; }
