#include "cd/cd_plan.h"

#include <gtest/gtest.h>

namespace vardolin {
namespace {

constexpr double MB = kCdMegabyte;

TEST(CdPlan, SpreadsLevelsInOrderOverCds) {
  struct Case {
    const char* what;
    std::vector<double> sizes;  // of levels 1, 2, 3 ...
    double room;
    std::vector<std::vector<std::int32_t>> plans;  // codes per CD, numbered from 4
    double left;  // a folder of the user's bigger than this goes on a CD of its own
  };
  const double capacity = CdCapacityBytes(650), room = capacity - 2 * MB;
  const Case cases[] = {
      {"no level, no CD", {}, room, {}, 0},
      {"all fit on the first", {100 * MB, 200 * MB, 300 * MB}, room, {{1, 2, 3}}, 43 * MB},
      // The first CD has 643 MB, the next 645.
      {"643, 645", {600 * MB, 42 * MB, 644 * MB, 1 * MB}, room, {{1, 2}, {3}, {4}}, 644 * MB},
      // A level that would fill the room to the byte waits for the next CD.
      {"to the byte", {643 * MB, 1 * MB}, room, {{}, {1, 2}}, 1 * MB},
      // A first level bigger than the room leaves the first CD to the shared items.
      {"first beyond the room", {700 * MB, 10 * MB}, 100 * MB, {{}, {1}, {2}}, 635 * MB},
      // A level bigger than a CD gets one of its own; the next closes it at once.
      {"beyond a CD", {10 * MB, 900 * MB, 10 * MB, 10 * MB}, room, {{1}, {2}, {3, 4}}, 625 * MB},
  };
  for (const Case& c : cases) {
    std::vector<std::int32_t> codes;
    for (std::size_t i = 0; i < c.sizes.size(); ++i) codes.push_back(static_cast<int>(i) + 1);
    const CdSplit split = SplitLevelsOnCds(codes, c.sizes, c.room, capacity, 4, "Arc");
    ASSERT_EQ(split.plans.size(), c.plans.size()) << c.what;
    EXPECT_DOUBLE_EQ(split.left, c.left) << c.what;
    for (std::size_t n = 0; n < c.plans.size(); ++n) {
      EXPECT_EQ(split.plans[n].number, 4 + static_cast<int>(n)) << c.what;
      EXPECT_EQ(split.plans[n].folder, "Arc" + std::to_string(4 + n)) << c.what;
      EXPECT_EQ(split.plans[n].codes, c.plans[n]) << c.what;
      for (std::int32_t code : c.plans[n]) EXPECT_EQ(split.cd_of_level[code - 1], 4 + int(n));
    }
  }
}

}  // namespace
}  // namespace vardolin
