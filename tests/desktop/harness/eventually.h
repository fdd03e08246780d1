// Waits as tests put them into EXPECT_TRUE: when one fails it says what was waited for, and what
// was there instead.
#pragma once

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <type_traits>

#include "harness/wait.h"

namespace harness {

/// `text` without its middle where it is very long, as the contents of a file can be.
[[nodiscard]] inline std::string shortened(const std::string& text) {
  constexpr std::size_t end = 1500;
  if (text.size() <= 2 * end) {
    return text;
  }
  return text.substr(0, end) + " ... (" + std::to_string(text.size() - 2 * end) +
         " characters more) ... " + text.substr(text.size() - end);
}

/// Reads until what is read fits `wanted`, which is a value or a matcher. A failure shows `wanted`
/// and what was read last.
template <class Read, class Wanted>
[[nodiscard]] ::testing::AssertionResult eventually(Read read, const Wanted& wanted,
                                                    int boundMs = patienceMs) {
  using Value = std::decay_t<decltype(read())>;
  const ::testing::Matcher<const Value&> matcher = ::testing::SafeMatcherCast<const Value&>(wanted);
  std::optional<Value> last;
  if (waitFor([&] { return matcher.Matches(last.emplace(read())); }, boundMs)) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << "waited " << boundMs << " ms for what "
         << shortened(::testing::DescribeMatcher<const Value&>(matcher))
         << "\nread last: " << shortened(::testing::PrintToString(*last));
}

/// Reads for `forMs` milliseconds; all that is read has to fit `wanted`. A failure shows `wanted`
/// and the first that did not fit.
template <class Read, class Wanted>
[[nodiscard]] ::testing::AssertionResult stays(Read read, const Wanted& wanted, int forMs) {
  using Value = std::decay_t<decltype(read())>;
  const ::testing::Matcher<const Value&> matcher = ::testing::SafeMatcherCast<const Value&>(wanted);
  std::optional<Value> last;
  if (!waitFor([&] { return !matcher.Matches(last.emplace(read())); }, forMs)) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << "wanted for " << forMs << " ms what "
         << shortened(::testing::DescribeMatcher<const Value&>(matcher))
         << "\nread: " << shortened(::testing::PrintToString(*last));
}

/// Waits until `condition` holds, where there is no value to show. A failure names `what`.
template <class Condition>
[[nodiscard]] ::testing::AssertionResult happens(const std::string& what, Condition condition,
                                                 int boundMs = patienceMs) {
  if (waitFor(condition, boundMs)) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "waited " << boundMs << " ms, and not so: " << what;
}

}  // namespace harness
