// How places stand to each other, for EXPECT_PRED_FORMAT2: a failure shows both.
#pragma once

#include <gtest/gtest.h>

#include "platform/geometry.h"
#include "platform/geometry_printing.h"

namespace unit {

/// Whether two places have no pixel in common.
inline ::testing::AssertionResult apart(const char* firstText, const char* secondText,
                                        const platform::Rect& first, const platform::Rect& second) {
  if (first.right() <= second.left || second.right() <= first.left ||
      first.bottom() <= second.top || second.bottom() <= first.top) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << firstText << " (" << ::testing::PrintToString(first) << ") lies over " << secondText
         << " (" << ::testing::PrintToString(second) << ")";
}

/// Whether the first place lies within the second.
inline ::testing::AssertionResult inside(const char* innerText, const char* outerText,
                                         const platform::Rect& inner, const platform::Rect& outer) {
  if (inner.left >= outer.left && inner.top >= outer.top && inner.right() <= outer.right() &&
      inner.bottom() <= outer.bottom()) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << innerText << " (" << ::testing::PrintToString(inner) << ") is not within " << outerText
         << " (" << ::testing::PrintToString(outer) << ")";
}

}  // namespace unit
