#pragma once

namespace vardolin {

// Keeps the local time zone that the process read first for the whole run. With TZ unset,
// glibc looks at /etc/localtime again on every local-time conversion to see whether it changed;
// reading a zip converts each entry's DOS time that way, twice, so a zip of 10,000 small files
// cost 20,000 needless looks, a fifth of its unpacking. Naming the same file in TZ makes glibc
// keep what it read. A TZ the user set stays as it is. Call it first thing in main, before any
// thread starts, since it changes the environment.
void PinTimeZone();

}  // namespace vardolin
