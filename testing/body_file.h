// Decoding a test's body text straight from a temporary file.
//
//   BodyText body;
//   body.code(0x1F09, {1}).text(u8"はな").code(0x1F0A).code(0x1F03);
//   EngineRun run = decode_body(body);        // cdtext(0) at kBodyPosition
#ifndef TESTING_BODY_FILE_H_
#define TESTING_BODY_FILE_H_

#include <cstdint>
#include <functional>

#include "testing/engine_runner.h"
#include "tools/body_text.h"

// Where decode_body and with_body_file put the body in their file: the
// start of page 2, for position 0 holds no text.
constexpr int32_t kBodyPosition = 2048;

// Writes `body` at kBodyPosition of a temporary single file (zeros in
// front), opens it as engine.current_file standing at the body's first
// byte, starts a new argument (seen_count 0), runs `steps` with the engine's streams captured, and closes it.
EngineRun with_body_file(const BodyText& body, const std::function<void()>& steps);
// with_body_file running cdtext(limit) once.
EngineRun decode_body(const BodyText& body, int32_t limit = 0);

// Puts back what the decoder reads of the engine's state, as a run starts
// it: no flags, no width, no cut, no attributes, nothing seen, forward
// search, the built-in external-character tables.
void reset_text_state();

#endif  // TESTING_BODY_FILE_H_
