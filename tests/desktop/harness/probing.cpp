// Queries that only code inside the driven program can answer. It is injected by a hook.
#include <windows.h>

#include <algorithm>
#include <memory>

#include "harness/bars.h"
#include "harness/looks.h"
#include "harness/paths.h"
#include "harness/remote_memory.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "probe/probe.h"

namespace harness {
namespace {

HMODULE probeModule() {
  static HMODULE const module = LoadLibraryW((buildFolder() + L"\\desktop_probe.dll").c_str());
  if (module == nullptr) {
    throw Failure("desktop_probe.dll cannot be loaded");
  }
  return module;
}

/// Loads the probe into the thread of a window while this object exists.
class Hook {
 public:
  explicit Hook(HWND window) {
    const auto procedure = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void*>(GetProcAddress(probeModule(), probe::procedureName)));
    hook_ = SetWindowsHookExW(WH_CALLWNDPROC, procedure, probeModule(),
                              GetWindowThreadProcessId(window, nullptr));
    if (hook_ == nullptr) {
      throw Failure("the probe cannot be set, error " + std::to_string(GetLastError()));
    }
  }
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;
  ~Hook() { UnhookWindowsHookEx(hook_); }

 private:
  HHOOK hook_ = nullptr;
};

template <class Answer>
std::unique_ptr<Answer> ask(HWND window, probe::Question question, const Answer& asked = {}) {
  static const UINT message = RegisterWindowMessageW(probe::messageName);
  RemoteMemory memory(window, sizeof(Answer));
  memory.put(asked);
  {
    const Hook hook(window);
    send(window, message, static_cast<WPARAM>(question), memory.parameter());
  }
  auto answer = std::make_unique<Answer>();
  memory.read(answer.get(), sizeof(Answer));
  if (answer->answered == 0) {
    throw Failure("the probe gave no answer");
  }
  return answer;
}

std::wstring plainCaption(std::wstring caption) {
  caption.resize(std::min(caption.size(), caption.find(L'\t')));
  std::erase(caption, L'&');
  return caption;
}

std::vector<MenuEntry> entriesOf(HWND window, probe::Question question) {
  const auto answer = ask<probe::MenuAnswer>(window, question);
  std::vector<MenuEntry> entries;
  for (int index = 0; index < answer->count; ++index) {
    const probe::MenuEntry& entry = answer->entries[index];
    entries.push_back({plainCaption(entry.caption), entry.separator != 0 ? 0 : entry.id,
                       entry.depth, entry.separator != 0, entry.checked != 0, entry.enabled != 0});
  }
  return entries;
}

}  // namespace

std::vector<MenuEntry> menuEntries(HWND window) { return entriesOf(window, probe::Question::menu); }

std::vector<MenuEntry> openMenuEntries() {
  constexpr const wchar_t* menuClass = L"#32768";
  HWND const menu = waitUntilFound("an open menu", [] {
    HWND const window = FindWindowW(menuClass, nullptr);
    return window != nullptr && IsWindowVisible(window) != FALSE ? window : nullptr;
  });
  return entriesOf(menu, probe::Question::popup);
}

int fontHeight(HWND control) {
  return ask<probe::FontAnswer>(control, probe::Question::font)->height;
}

SIZE imageSize(HWND control, UINT message, WPARAM which) {
  probe::ImagesAnswer asked{};
  asked.message = message;
  asked.which = which;
  const auto answer = ask(control, probe::Question::images, asked);
  return {answer->width, answer->height};
}

ChangedColours::ChangedColours(HWND window, const std::map<int, COLORREF>& colours) {
  probe::ColoursOrder order{};
  for (const auto& [index, colour] : colours) {
    before_[index] = GetSysColor(index);
    order.indices[order.count] = index;
    order.colours[order.count++] = colour;
  }
  ask(window, probe::Question::colours, order);
}

ChangedColours::~ChangedColours() {
  for (const auto& [index, colour] : before_) {
    SetSysColors(1, &index, &colour);
  }
  // Wine stores the colours that were set for the programs of the session and prefers them to the
  // scheme.
  RegDeleteTreeW(HKEY_CURRENT_USER,
                 L"Software\\Wine\\Temporary System Parameters\\Control Panel\\Colors");
}

int systemIconOf(HWND iconControl) {
  return ask<probe::IconAnswer>(iconControl, probe::Question::icon)->systemIcon;
}

}  // namespace harness
