#include "testing/body_file.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "text/decoder.h"
#include "text/gaiji.h"

EngineRun with_body_file(const BodyText& body, const std::function<void()>& steps) {
  FILE* file = tmpfile();
  if (file == nullptr) throw std::runtime_error("no temporary file");
  std::string contents(kBodyPosition, '\0');
  contents += body.data();
  fwrite(contents.data(), 1, contents.size(), file);
  fflush(file);
  FILE* saved = engine.current_file;
  engine.current_file = file;
  cdseek(kBodyPosition, 0);
  engine.seen_count = 0;  // as at the start of an argument
  EngineRun run = capture_engine(steps);
  engine.current_file = saved;
  cdforget(file);  // the engine keeps what it read of the file until told
  fclose(file);
  return run;
}

EngineRun decode_body(const BodyText& body, int32_t limit) {
  return with_body_file(body, [limit] { cdtext(limit); });
}

void reset_text_state() {
  engine.flags = 0;
  engine.width = 0;
  engine.cut_length = 0;
  engine.index_id = -1;
  engine.text_attribute = 0;
  engine.shown_attribute = -1;
  engine.seen_count = 0;
  cdgaijiload("", &engine.gaiji_table);
  cdgaijiload("", &engine.hankaku_table);
}
