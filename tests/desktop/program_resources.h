// The resources of the built program file.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string_view>

#include "harness/paths.h"

namespace desktop_tests {

/// Maps the program file, without running it.
class ProgramResources : public ::testing::Test {
 protected:
  void SetUp() override {
    module_ = LoadLibraryExW(harness::gatewayExecutable().c_str(), nullptr,
                             LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    ASSERT_NE(module_, nullptr);
  }
  void TearDown() override {
    if (module_ != nullptr) {
      FreeLibrary(module_);
    }
  }

  /// The bytes of a resource, "" when there is none.
  [[nodiscard]] std::string_view resource(const wchar_t* name, const wchar_t* type) const {
    HRSRC const found = FindResourceW(module_, name, type);
    if (found == nullptr) {
      return {};
    }
    return {static_cast<const char*>(LockResource(LoadResource(module_, found))),
            SizeofResource(module_, found)};
  }

  HMODULE module_ = nullptr;
};

}  // namespace desktop_tests
