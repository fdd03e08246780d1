// Base class of the tests that use the in-memory desktop.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/desktop.h"
#include "platform/geometry_printing.h"
#include "platform/text.h"

namespace memory {

/// Resets the desktop before each test and turns mistakes in the script into test failures. A
/// message box that the test did not read, in particular an error report, makes it fail too.
class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest() {
    desktop().reset();
    desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
  }
  /// In the destructor and not in TearDown, so that messages shown while the test's windows close
  /// are included.
  ~DesktopTest() override {
    for (const std::wstring& text : desktop().unexpectedMessages()) {
      ADD_FAILURE() << "the program showed a message that the test did not look at: "
                    << platform::text::toCodePage(text);
    }
  }
};

}  // namespace memory
