#include "cli/drawing_files.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/text.h"

namespace {

struct KindName {
  FileKind kind;
  std::string_view end;
};
constexpr KindName kKindNames[] = {{FileKind::Pdf, ".pdf"},
                                   {FileKind::Svg, ".svg"},
                                   {FileKind::Png, ".png"},
                                   {FileKind::Bmp, ".bmp"}};

std::optional<FileKind> KindByName(const std::string& name) {
  const std::string upper = UpperCase(name);
  for (const KindName& known : kKindNames)
    if (upper.ends_with(UpperCase(known.end))) return known.kind;
  return std::nullopt;
}

}  // namespace

FileKind KindOf(const std::string& name, FileKind fallback) {
  return KindByName(name).value_or(fallback);
}

CLI::Validator CheckKind(std::initializer_list<FileKind> kinds) {
  return CLI::Validator(
      [kinds = std::vector(kinds)](const std::string& name) -> std::string {
        const auto kind = KindByName(name);
        if (name == "-" ||
            (kind && std::ranges::find(kinds, *kind) != kinds.end()))
          return "";
        std::string ends;
        for (const KindName& known : kKindNames)
          if (std::ranges::find(kinds, known.kind) != kinds.end())
            ends.append(ends.empty() ? "" : ", ").append(known.end);
        return name + ": the name must end in one of " + ends;
      },
      "FILE");
}
