#pragma once
// libarchive converts names between an archive's charset and the charset of the calling
// thread's locale. Working under C.UTF-8 for the length of one archive operation makes every
// name UTF-8 (and gives a zip's non-ASCII names the UTF-8 flag) whatever locale the program
// runs in, without touching the locale of other threads.

#include <locale.h>

namespace vardolin {

class ScopedUtf8Locale {
 public:
  ScopedUtf8Locale() {
    static locale_t utf8 = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    if (utf8) previous_ = uselocale(utf8);
  }
  ~ScopedUtf8Locale() {
    if (previous_) uselocale(previous_);
  }
  ScopedUtf8Locale(const ScopedUtf8Locale&) = delete;
  ScopedUtf8Locale& operator=(const ScopedUtf8Locale&) = delete;

 private:
  locale_t previous_ = nullptr;
};

}  // namespace vardolin
