// Tests of the flat look on native controls.
#include <gmock/gmock.h>
#include <windows.h>
// The controls' header relies on the first.
#include <commctrl.h>

#include <cstdio>

#include "desktop_facts.h"

int main(int argumentCount, char** arguments) {
  // Results have to be on the disk even if the run is cut off.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  ::testing::InitGoogleMock(&argumentCount, arguments);
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_STANDARD_CLASSES | ICC_USEREX_CLASSES};
  InitCommonControlsEx(&classes);
  const flat_tests::DistinctColours colours;
  return RUN_ALL_TESTS();
}
