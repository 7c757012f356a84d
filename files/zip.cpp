#include "files/zip.h"

#include <zip.h>

#include <memory>
#include <new>

#include "base/text.h"
#include "files/format.h"

namespace {

constexpr std::size_t kLargest = 1 << 26;
constexpr zip_int64_t kMostEntries = 1000;

struct Discard {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct Close {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
struct Free {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Source = std::unique_ptr<zip_source_t, Free>;

Source MakeSource(std::string_view bytes) {
  zip_error_t error;
  zip_error_init(&error);
  Source source(
      zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error));
  zip_error_fini(&error);
  if (!source) throw std::bad_alloc();
  return source;
}

// Takes over the source.
Archive Open(Source source, int flags) {
  zip_error_t error;
  zip_error_init(&error);
  Archive archive(zip_open_from_source(source.get(), flags, &error));
  zip_error_fini(&error);
  if (!archive) throw FormatError("the zip archive is damaged");
  (void)source.release();
  return archive;
}

// The file to be read, by its place in the archive.
zip_uint64_t Choose(zip_t* archive, std::string_view ending) {
  const zip_int64_t count =
      std::min(zip_get_num_entries(archive, 0), kMostEntries);
  zip_int64_t first = -1;
  for (zip_int64_t i = 0; i < count; ++i) {
    const char* name = zip_get_name(archive, i, ZIP_FL_ENC_RAW);
    const std::string upper = UpperCase(name ? name : "/");
    if (upper.ends_with('/')) continue;
    if (upper.ends_with(UpperCase(ending))) return i;
    if (first < 0) first = i;
  }
  if (first < 0) throw FormatError("there is no file in the zip archive");
  return first;
}

}  // namespace

bool IsZip(std::string_view bytes) {
  return bytes.starts_with("PK\x03\x04");
}

std::string Unzipped(std::string_view bytes, std::string_view ending) {
  const Archive archive = Open(MakeSource(bytes), ZIP_RDONLY);
  const std::unique_ptr<zip_file_t, Close> file(
      zip_fopen_index(archive.get(), Choose(archive.get(), ending), 0));
  if (!file) throw FormatError("the file in the zip archive cannot be read");
  std::string content, chunk(1 << 16, '\0');
  zip_int64_t size = 0;
  while ((size = zip_fread(file.get(), chunk.data(), chunk.size())) > 0) {
    content.append(chunk, 0, static_cast<std::size_t>(size));
    if (content.size() > kLargest)
      throw FormatError("the file in the zip archive is larger than 64 MiB");
  }
  if (size < 0) throw FormatError("the file in the zip archive is damaged");
  return content;
}

std::string Zipped(const std::string& name, const std::string& content) {
  constexpr zip_uint16_t kFirstDay = 0x21;  // 1980-01-01
  Source target = MakeSource("");
  zip_source_keep(target.get());
  Archive archive = Open(Source(target.get()), ZIP_TRUNCATE);
  zip_source_t* source =
      zip_source_buffer(archive.get(), content.data(), content.size(), 0);
  const zip_int64_t index =
      zip_file_add(archive.get(), name.c_str(), source, 0);
  if (index < 0) {
    zip_source_free(source);
    throw std::bad_alloc();
  }
  zip_file_set_dostime(archive.get(), index, 0, kFirstDay, 0);
  if (zip_close(archive.get()) != 0) throw std::bad_alloc();
  (void)archive.release();

  zip_stat_t stat;
  if (zip_source_open(target.get()) != 0 ||
      zip_source_stat(target.get(), &stat) != 0)
    throw std::bad_alloc();
  std::string bytes(stat.size, '\0');
  const zip_int64_t read =
      zip_source_read(target.get(), bytes.data(), bytes.size());
  zip_source_close(target.get());
  if (read != static_cast<zip_int64_t>(bytes.size())) throw std::bad_alloc();
  return bytes;
}
