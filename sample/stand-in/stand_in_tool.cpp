// STAND-IN. The suite's tools are separate programs that are not part of this project. The sample
// application folder and the desktop tests put copies of this one in their places, under their
// names. It opens nothing: it writes down how it was started, and shows it.
//
// Log: "standin.log" beside the exe, or in the temporary folder where that one cannot be written.
// One line in UTF-8 for each start: raw command line, tab, working folder, tab, show state, tab,
// error mode. The show state is the number that the starter asked for, or "default" when it asked
// for none; the error mode is the number with which the process begins.
//
// The window goes away when a file "standin.quit" appears in the log's folder, or after the number
// of milliseconds in the environment variable QMK_STANDIN_MS; 0 there means that no window is
// shown at all.
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>
#include <cwchar>
#include <optional>
#include <string>

namespace {

constexpr int margin = 12;
constexpr int textWidth = 620;
constexpr int designDpi = 96;
constexpr int quitPollMs = 200;
constexpr UINT_PTR quitTimer = 1;
constexpr UINT_PTR lifeTimer = 2;
constexpr std::size_t longestPath = 32768;

struct Start {
  std::wstring commandLine;
  std::wstring workingFolder;
  std::wstring showState;
  std::wstring errorMode;
};

std::wstring quitFile;  // the window procedure looks for it

std::wstring executable() {
  std::wstring path(longestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

Start received() {
  Start start;
  start.commandLine = GetCommandLineW();
  start.workingFolder.resize(longestPath);
  start.workingFolder.resize(
      GetCurrentDirectoryW(static_cast<DWORD>(longestPath), start.workingFolder.data()));
  STARTUPINFOW info{};
  info.cb = sizeof(info);
  GetStartupInfoW(&info);
  start.showState = (info.dwFlags & STARTF_USESHOWWINDOW) != 0 ? std::to_wstring(info.wShowWindow)
                                                               : std::wstring(L"default");
  start.errorMode = std::to_wstring(GetErrorMode());
  return start;
}

std::string utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int bytes =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), bytes, nullptr, nullptr);
  return result;
}

/// One write in append mode, so that tools started at the same moment never mix their lines.
bool append(const std::wstring& path, const std::string& line) {
  HANDLE const file = CreateFileW(path.c_str(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  DWORD written = 0;
  const BOOL done =
      WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  CloseHandle(file);
  return done != FALSE && written == line.size();
}

/// Writes the line; the result is the folder of the log, with its trailing backslash.
std::wstring writeLog(const std::wstring& exeFolder, const Start& start) {
  const std::string line = utf8(start.commandLine + L"\t" + start.workingFolder + L"\t" +
                                start.showState + L"\t" + start.errorMode) +
                           "\n";
  if (append(exeFolder + L"standin.log", line)) {
    return exeFolder;
  }
  std::array<wchar_t, MAX_PATH + 1> temporary{};
  GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
  append(std::wstring(temporary.data()) + L"standin.log", line);
  return temporary.data();
}

/// Milliseconds that the window stays open; nothing when the user closes it.
std::optional<UINT> lifeTime() {
  std::array<wchar_t, 16> value{};
  if (GetEnvironmentVariableW(L"QMK_STANDIN_MS", value.data(), static_cast<DWORD>(value.size())) ==
      0) {
    return std::nullopt;
  }
  return static_cast<UINT>(std::wcstoul(value.data(), nullptr, 10));
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_TIMER:
      if (wParam == lifeTimer || GetFileAttributesW(quitFile.c_str()) != INVALID_FILE_ATTRIBUTES) {
        DestroyWindow(window);
      }
      return 0;
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

/// Room that the text takes, broken into lines of a sensible width.
RECT placeOf(const std::wstring& text, HGDIOBJ font) {
  HDC const screen = GetDC(nullptr);
  HGDIOBJ const before = SelectObject(screen, font);
  RECT area{0, 0, MulDiv(textWidth, GetDeviceCaps(screen, LOGPIXELSX), designDpi), 0};
  DrawTextW(screen, text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return area;
}

HWND show(HINSTANCE instance, const std::wstring& name, const Start& start, int showState) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = instance;
  windowClass.hIcon = LoadIconW(instance, L"STANDIN");
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  windowClass.lpszClassName = L"QuillmarkStandIn";
  RegisterClassW(&windowClass);

  const std::wstring title = L"Stand-in for " + name;
  const std::wstring text = L"This is a stand-in for " + name +
                            L", a separate program of the suite.\n"
                            L"It opens no file; it only shows how it was started.\n\n"
                            L"Command line:\n" +
                            start.commandLine + L"\n\nWorking folder:\n" + start.workingFolder +
                            L"\n\nShow state: " + start.showState;
  HGDIOBJ const font = GetStockObject(DEFAULT_GUI_FONT);
  RECT area = placeOf(text, font);
  const SIZE textSize{area.right, area.bottom};
  InflateRect(&area, margin, margin);
  AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
  HWND const window =
      CreateWindowExW(0, windowClass.lpszClassName, title.c_str(), WS_OVERLAPPEDWINDOW,
                      CW_USEDEFAULT, CW_USEDEFAULT, area.right - area.left, area.bottom - area.top,
                      nullptr, nullptr, instance, nullptr);
  HWND const label =
      CreateWindowExW(0, L"STATIC", text.c_str(), WS_CHILD | WS_VISIBLE | SS_NOPREFIX, margin,
                      margin, textSize.cx, textSize.cy, window, nullptr, instance, nullptr);
  SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
  ShowWindow(window, showState);
  UpdateWindow(window);
  return window;
}

}  // namespace

// The header names the parameters in another style.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*arguments*/,
                    int showState) {
  const std::wstring path = executable();
  const std::size_t lastSeparator = path.find_last_of(L'\\');
  const Start start = received();
  const std::wstring logFolder = writeLog(path.substr(0, lastSeparator + 1), start);
  quitFile = logFolder + L"standin.quit";

  const std::optional<UINT> life = lifeTime();
  if (life == 0U) {
    return 0;
  }
  HWND const window = show(instance, path.substr(lastSeparator + 1), start, showState);
  SetTimer(window, quitTimer, quitPollMs, nullptr);
  if (life) {
    SetTimer(window, lifeTimer, *life, nullptr);
  }
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
