#include "engine/book_end.h"

#include "engine/file_access.h"

int cdeof() {
  const BookReader* reader = current_reader();
  return reader == nullptr || reader->at_end ? 1 : 0;
}
