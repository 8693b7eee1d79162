#!/bin/sh
# Started from the root of a Vardolin level CD (its autorun.inf names it): opens the catalogue
# that rides on the CD with Vardolin, which offers to set the archive up on the hard disk. The
# start file beside it tells what the CD holds, one NAME="path" line each.
here=$(dirname "$0")
archive=$(tr -d '\r' < "$here/vardolin_cd.txt" | sed -n 's/^ARCHIVE="\\\{0,1\}\(.*\)"$/\1/p')
if [ -n "$archive" ] && command -v vardolin >/dev/null 2>&1; then
  exec vardolin "$here/$archive"
fi
tr -d '\r' < "$here/vardolin_cd.txt"
