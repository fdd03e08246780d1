// The identity of the program, for the system and for the user.
#include "platform/application.h"

namespace platform::application {

const wchar_t* const title = L"Quillmark Suite 3 Gateway";
const wchar_t* const settingsName = L"Quillmark Suite 3";
const wchar_t* const instanceName = L"QuillmarkSuite3Gateway";

}  // namespace platform::application
