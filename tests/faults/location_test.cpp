// The stage at which a load of the data list stopped, as its message shows it.
#include <gtest/gtest.h>

#include <string>

#include "catalogue/catalogue_view.h"
#include "faults/allocations.h"
#include "faults/sweep.h"

namespace faults {
namespace {

using memory::desktop;

TEST(Location, FollowsTheLoadThroughARecord) {
  Rig rig;
  // Texts whose conversion always needs memory.
  desktop().putFile(catalogueFile, record("\xE9t\xE9 et hiver",
                                          "D:\\A folder of the survey\\A file of the survey.fp3",
                                          "the eleventh of November in the morning"));
  std::wstring seen;
  const std::wstring before = L"Problem building QMK file list\rLocation: ";
  for (int n = 1;; ++n) {
    // Each run starts from the same state, so that the allocations are in the same order.
    modQMKGeneral::LoadCatalogueView(rig.main().catalogue);
    desktop().messages.clear();
    failAllocation(n);
    {
      const CountedAllocations counted;
      modQMKGeneral::LoadCatalogueView(rig.main().catalogue);
    }
    if (!allocationFailed()) {
      break;
    }
    ASSERT_EQ(desktop().messages.size(), 1U) << n;
    const std::wstring text = desktop().messages[0].text;
    ASSERT_TRUE(text.starts_with(before)) << n;
    const std::wstring location = text.substr(before.size(), text.rfind(L'\r') - before.size());
    if (!seen.ends_with(location)) {
      seen += location;
    }
  }
  failAllocation(0);
  // Finding the type, stages "4" to "6", allocates nothing.
  EXPECT_EQ(seen, L"12378");
}

}  // namespace
}  // namespace faults
