#include "platform/win32/errors.h"

#include <algorithm>

namespace platform::win32 {

void raise(DWORD systemError, std::initializer_list<Meaning> meanings) {
  const auto* const found = std::find_if(
      meanings.begin(), meanings.end(),
      [systemError](const Meaning& meaning) { return meaning.systemError == systemError; });
  throw RunTimeError(found != meanings.end() ? found->number : errorNumberFromSystem(systemError));
}

DWORD systemErrorOf(HRESULT result) {
  const int facility = HRESULT_FACILITY(result);
  if (facility != FACILITY_WIN32 && facility != FACILITY_STORAGE) return ERROR_GEN_FAILURE;
  return static_cast<DWORD>(HRESULT_CODE(result));
}

}  // namespace platform::win32
