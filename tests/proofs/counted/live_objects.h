// Shared memory in which the counting build of the program publishes its live objects. Its name is
// this one, followed by the process id.
#pragma once

namespace proofs {

inline constexpr const wchar_t* liveObjectsName = L"Local\\proof-live-objects-";

struct LiveObjects {
  static constexpr int most = 48;
  struct Kind {
    char name[80];
    volatile long long live;
  };
  volatile int count;
  Kind kinds[most];
};

}  // namespace proofs
