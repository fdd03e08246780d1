// How the started tool tells the driver when it ran.
#pragma once

namespace bench {

/// Memory that holds the value of `now()` at the tool's first instruction, and the event that
/// says that it is there.
inline constexpr const wchar_t* startedMemory = L"QuillmarkBenchStarted";
inline constexpr const wchar_t* startedEvent = L"QuillmarkBenchStartedEvent";

}  // namespace bench
