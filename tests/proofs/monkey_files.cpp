// What happens to files beside the monkey's program, and between two runs of it.
#include <array>

#include "harness/files.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "monkey.h"

namespace proofs {

using harness::Failure;

namespace {

constexpr const wchar_t* rememberedPlace = L"Placement";

}  // namespace

bool Monkey::placeIsStored() const {
  const auto file = harness::readFile(settingsPath());
  return file ? file->find("\nPlacement=") != std::string::npos
              : harness::TestProfile::setting(rememberedPlace).has_value();
}

void Monkey::forgetPlace(bool carried) const {
  harness::TestProfile::removeSetting(rememberedPlace);
  if (carried) {
    // At the last start its drive had another letter.
    harness::writeFile(settingsPath(), "; note\r\n[General]\r\nCWIExample=True\r\nDrive=Q:\r\n");
  } else if (harness::exists(settingsPath())) {
    harness::removeFile(settingsPath());
  }
}

void Monkey::restart() {
  const auto code = app_.process().waitForExit(0);
  // When the program ends normally, it stores its window's placement at the very end.
  const bool remembered = placeIsStored();
  if (code != DWORD{0} || !remembered) {
    throw Failure("the program has ended with " + std::to_string(code.value_or(0)) +
                  (remembered ? "" : " without remembering its window"));
  }
  forgetPlace(random_.oneIn(2));
  ++restarts_;
  app_.start();
  harness::waitUntil("the program comes back", [this] {
    // If the machine stands still for a while, the splash window may appear and disappear
    // unnoticed.
    if (HWND const splash = app_.splash(); splash != nullptr) {
      PostMessageW(splash, WM_LBUTTONDOWN, MK_LBUTTON, 0);
      PostMessageW(splash, WM_LBUTTONUP, 0, 0);
    }
    return harness::visibleWindow(app_.processId(), L"frmQMK") != nullptr;
  });
  app_.waitForMain();
  harness::waitUntil("start-up fills the lists",
                     [this] { return app_.list(harness::Tab::newFile).count() == 4; });
  app_.waitForEndOfStart();
}

void Monkey::changeFiles() {
  const std::wstring number = std::to_wstring(files_++ % 50);
  const std::wstring path = app_.folder() + L"\\data\\Found " + number + L".fp3";
  const int kind = random_.below(6);
  note("change of files " + std::to_string(kind));
  // The program may have the file open at this instant; then the file is not changed.
  const auto appendTo = [](const std::wstring& file, const std::wstring& line) {
    HANDLE const open =
        CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (open != INVALID_HANDLE_VALUE) {
      const std::string bytes = harness::codePageBytes(line);
      DWORD written = 0;
      WriteFile(open, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
      CloseHandle(open);
    }
  };
  switch (kind) {
    case 0:
      harness::writeFile(path, "data\r\n");
      break;
    case 1:
      DeleteFileW(path.c_str());
      break;
    case 2:
      DeleteFileW(app_.cataloguePath().c_str());
      break;
    case 3:
      appendTo(app_.folder() + L"\\QMKWebList.txt",
               L"\"Page " + number + L"\",\"qmkproof:" + number + L"\"\r\n");
      break;
    default:
      appendTo(app_.cataloguePath(),
               L"\"fp3\",\"" + (kind == 4 ? path : L"C:\\gone\\Gone " + number + L".bs3") +
                   L"\",\"1/2/2003\"\r\n");
  }
}

}  // namespace proofs
