// The names of files in a zip are UTF-8 whatever the machine's language is: while one lives, the zip library
// takes them so. Who writes or reads a course file holds one.
#pragma once

#include <locale.h>

class Utf8Names {
 public:
  Utf8Names() : names_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)), former_(uselocale(names_)) {}
  ~Utf8Names() {
    uselocale(former_);
    if (names_ != nullptr) freelocale(names_);
  }
  Utf8Names(const Utf8Names&) = delete;
  Utf8Names& operator=(const Utf8Names&) = delete;

 private:
  locale_t names_, former_;
};
