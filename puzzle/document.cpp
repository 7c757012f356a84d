#include "puzzle/document.h"

#include <cassert>

Document::Document(int width, int height)
    : width(width), height(height), cells(width * height) {
  assert(width >= 1 && height >= 1);
}
