// Where the counting build of the program shows its live objects: shared memory of this name with
// the number of the process behind it.
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
