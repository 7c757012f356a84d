#include "tests/paths.h"

std::string SourcePath(const std::string& name) {
  return KELDA_SOURCE_DIR "/" + name;
}

std::string BuiltPath(const std::string& name) {
  return KELDA_BINARY_DIR "/" + name;
}
