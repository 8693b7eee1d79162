// SHA-256 against the published test vectors: one block, the padding that spills into a second
// block, and a long input read from a file in pieces.

#include "foundation/services/sha256.h"

#include <gtest/gtest.h>

#include <string>

#include "temp_dir.h"

namespace vardolin {
namespace {

TEST(Sha256, GivesThePublishedDigests) {
  struct Case {
    std::string bytes;
    const char* digest;
  };
  const Case cases[] = {
      {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
      {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
      {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
       "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
      {std::string(1000000, 'a'),
       "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
  };
  testing::TempDir dir;
  for (const Case& c : cases) {
    EXPECT_EQ(Sha256Hex(c.bytes), c.digest) << c.bytes.size() << " bytes";
    EXPECT_EQ(Sha256OfFile(dir.Write("bytes", c.bytes)), c.digest) << c.bytes.size() << " bytes";
  }
  EXPECT_EQ(Sha256OfFile(dir / "missing"), "");
}

}  // namespace
}  // namespace vardolin
