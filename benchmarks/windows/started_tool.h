// Communication between the started tool and the driver.
#pragma once

namespace bench {

/// Shared memory with the value of `now()` at the tool's first instruction, and the event that is
/// set when the value is there.
inline constexpr const wchar_t* startedMemory = L"QuillmarkBenchStarted";
inline constexpr const wchar_t* startedEvent = L"QuillmarkBenchStartedEvent";

}  // namespace bench
