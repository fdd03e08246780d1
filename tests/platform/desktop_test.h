// Base of the tests that use the in-memory desktop.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/desktop.h"
#include "platform/geometry_printing.h"
#include "platform/text.h"

namespace desktop {

/// Resets the desktop before each test and turns mistakes in its scripting into test failures. A
/// message box, above all the report of an error, that the test did not look at fails it too.
class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest() {
    desktop().reset();
    desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
  }
  /// Here and not in TearDown, so that what the closing windows of the test show counts as well.
  ~DesktopTest() override {
    for (const std::wstring& text : desktop().unexpectedMessages()) {
      ADD_FAILURE() << "the program showed a message that the test did not look at: "
                    << platform::text::toCodePage(text);
    }
  }
};

}  // namespace desktop
