// Base of the tests that use the in-memory desktop.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/desktop.h"

namespace desktop {

/// Resets the desktop before each test and turns mistakes in its scripting into test failures.
class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest() {
    desktop().reset();
    desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
  }
};

}  // namespace desktop
