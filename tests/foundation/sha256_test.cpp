// SHA-256 against published vectors: one block, and many read from a file in pieces.
#include "foundation/services/sha256.h"

#include <gtest/gtest.h>

#include "temp_dir.h"

namespace vardolin {
namespace {

TEST(Sha256, GivesThePublishedDigests) {
  const std::pair<std::string, const char*> cases[] = {
      {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
      {std::string(1000000, 'a'),
       "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"}};
  testing::TempDir dir;
  for (const auto& [bytes, digest] : cases)
    EXPECT_EQ(Sha256OfFile(dir.Write("bytes", bytes)), digest) << bytes.size() << " bytes";
}

}  // namespace
}  // namespace vardolin
