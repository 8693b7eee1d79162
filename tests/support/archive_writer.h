#pragma once
// Archives written with libarchive for the tests: names go in exactly as given, so a test can
// make the archives authors make (and hostile ones) without an outside tool.

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>
#include <locale.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin::testing {

struct Member {
  enum Kind { File, Folder, Link, HardLink };
  std::string name;  // bytes as stored
  std::string data = {};
  Kind kind = File;
  std::string link = {};
};

// Writes an archive with libarchive: "zip", "7zip" or "pax" (with "gzip" as `filter`). Names go
// in as raw bytes, unless `utf8`: then they are UTF-8 and a zip marks them so.
inline void WriteArchive(const std::filesystem::path& path, const std::vector<Member>& members,
                         const char* format = "zip", const char* filter = nullptr,
                         const char* passphrase = nullptr, bool utf8 = false) {
  static locale_t utf8_locale = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
  locale_t before = utf8 ? uselocale(utf8_locale) : nullptr;
  archive* a = archive_write_new();
  archive_write_set_format_by_name(a, format);
  if (filter) archive_write_add_filter_by_name(a, filter);
  if (passphrase) {
    archive_write_set_options(a, "zip:encryption=zipcrypt");
    archive_write_set_passphrase(a, passphrase);
  }
  ASSERT_EQ(archive_write_open_filename(a, path.c_str()), ARCHIVE_OK);
  for (const Member& m : members) {
    archive_entry* e = archive_entry_new();
    archive_entry_set_pathname(e, m.name.c_str());
    archive_entry_set_filetype(e, m.kind == Member::Folder ? AE_IFDIR
                                  : m.kind == Member::Link ? AE_IFLNK
                                                           : AE_IFREG);
    archive_entry_set_perm(e, 0644);
    if (m.kind == Member::Link) archive_entry_set_symlink(e, m.link.c_str());
    if (m.kind == Member::HardLink) archive_entry_set_hardlink(e, m.link.c_str());
    archive_entry_set_size(e, static_cast<la_int64_t>(m.data.size()));
    ASSERT_GE(archive_write_header(a, e), ARCHIVE_WARN) << archive_error_string(a);
    if (!m.data.empty()) archive_write_data(a, m.data.data(), m.data.size());
    archive_entry_free(e);
  }
  archive_write_close(a);
  archive_write_free(a);
  if (before) uselocale(before);
}

}  // namespace vardolin::testing
