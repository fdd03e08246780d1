// Runs the product's own code, one list file operation after the other at full speed, or acts as a
// foreign program that works on the same file. See orders.h.
#include <windows.h>
// After it.
#include <objbase.h>

#include <algorithm>
#include <bit>
#include <cwchar>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_listing.h"
#include "catalogue/moved_records.h"
#include "listfile/list_file.h"
#include "mainwindow/main_window.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/win32/handles.h"
#include "startup/paths.h"
#include "undo/history.h"
#include "web/web_list.h"
#include "worker/orders.h"

namespace {

using platform::win32::FileHandle;
using proofs::Notes;
using proofs::Operation;

Notes* notes = nullptr;

/// Records a failed operation with its text.
void note(const wchar_t* text) {
  notes->messages = notes->messages + 1;
  std::wcsncpy(notes->lastMessage, text, proofs::longestMessage - 1);
}

/// Records the texts of message boxes and presses OK, because nobody else answers them.
LRESULT CALLBACK answerMessages(int code, WPARAM window, LPARAM details) {
  // A box may be activated more than once, and other windows may be activated too.
  static HWND answered = nullptr;
  auto* const box = std::bit_cast<HWND>(window);
  if (code == HCBT_DESTROYWND && box == answered) {
    answered = nullptr;
  }
  if (code == HCBT_ACTIVATE && box != answered) {
    constexpr int textId = 0xFFFF;
    wchar_t text[proofs::longestMessage] = {};
    if (GetDlgItemTextW(box, textId, text, proofs::longestMessage) > 0) {
      answered = box;
      note(text);
      PostMessageW(box, WM_COMMAND, IDOK, 0);
    }
  }
  return CallNextHookEx(nullptr, code, window, details);
}

std::int64_t microseconds() {
  LARGE_INTEGER now{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  constexpr std::int64_t million = 1'000'000;
  return now.QuadPart / frequency.QuadPart * million +
         now.QuadPart % frequency.QuadPart * million / frequency.QuadPart;
}

/// In milliseconds. What nobody gave a beginning began when the machine was started.
std::int64_t sinceBegin() { return static_cast<std::int64_t>(GetTickCount64() - notes->begin); }

/// Runs an operation like the program's dispatcher; false when it reported a failure.
template <class Body>
bool succeeds(Body body) {
  const std::int64_t messagesBefore = notes->messages;
  const std::int64_t start = microseconds();
  try {
    body();
  } catch (const platform::RunTimeError& failure) {
    note(failure.numberAndDescription().c_str());
  }
  const std::int64_t lasted = microseconds() - start;
  const bool done = notes->messages == messagesBefore;
  const auto raise = [lasted](volatile std::int64_t& slowest) {
    const std::int64_t before = slowest;
    slowest = std::max(before, lasted);
  };
  raise(notes->slowest);
  if (!done) {
    raise(notes->slowestFailed);
    if (notes->failures < proofs::mostFailures) {
      notes->failedAt[notes->failures] = sinceBegin();
    }
    notes->failures = notes->failures + 1;
  } else if (const std::int64_t slice = sinceBegin() / proofs::sliceMs;
             slice < proofs::mostSlices) {
    notes->gotOn[slice] = 1;
  }
  return done;
}

void perform(frmQMK& window, const Operation& operation) {
  switch (operation.kind) {
    case Operation::Kind::addOrUpdate:
      modQMKGeneral::AddOrUpdateCatalogueEntry(proofs::pathOf(operation.number), L"FP3");
      break;
    case Operation::Kind::remove:
      modQMKGeneral::RemoveCatalogueEntry(proofs::pathOf(operation.number));
      break;
    case Operation::Kind::refresh:
      modQMKGeneral::RefreshDataFolderEntries(window.catalogue);
      break;
    case Operation::Kind::webAppend:
      modQMKGeneral::AppendWebEntry(window.webList, proofs::nameOf(operation.number),
                                    proofs::addressOf(operation.number));
      break;
    case Operation::Kind::webDelete:
      modQMKGeneral::DeleteWebEntry(window.webList, proofs::nameOf(operation.number));
      break;
  }
}

void churn(std::uint64_t seed, std::int64_t first, std::int64_t end) {
  const auto window = std::make_unique<frmQMK>();
  for (std::int64_t n = first; n < end; ++n) {
    notes->ready = 1;
    static_cast<void>(succeeds([&] { perform(*window, proofs::operationAt(seed, n)); }));
    notes->finished = n + 1;
  }
}

/// Adds `count` records and removes every third one again; updates and refreshes in between.
void write(const std::wstring& tag, int count) {
  const auto window = std::make_unique<frmQMK>();
  const auto add = [&](int number) {
    if (succeeds([&] {
          modQMKGeneral::AddOrUpdateCatalogueEntry(proofs::pathOf(tag, number), L"FP3");
        })) {
      notes->wanted[number] = 1;
    }
  };
  for (int number = 0; number < count; ++number) {
    notes->ready = 1;
    add(number);
    if (number % 3 == 2 &&
        succeeds([&] { modQMKGeneral::RemoveCatalogueEntry(proofs::pathOf(tag, number)); })) {
      notes->wanted[number] = 0;
    }
    if (number % 5 == 4) {
      add(number - 1);
    }
    if (number % 10 == 9) {
      static_cast<void>(
          succeeds([&] { modQMKGeneral::RefreshDataFolderEntries(window->catalogue); }));
    }
    notes->finished = number + 1;
  }
}

/// Adds, dates and removes the same records again and again for that time.
void churnRecords(const std::wstring& tag, int count, std::int64_t seconds) {
  constexpr std::int64_t second = 1000;
  constexpr std::int64_t removeEvery = 3;
  notes->ready = 1;
  while (notes->begin == 0) {
    Sleep(1);
  }
  for (std::int64_t n = 0; sinceBegin() < seconds * second; ++n) {
    const int number = static_cast<int>(n % count);
    const std::wstring path = proofs::pathOf(tag, number);
    if (notes->wanted[number] != 0 && n / count % removeEvery == 0) {
      if (succeeds([&] { modQMKGeneral::RemoveCatalogueEntry(path); })) {
        notes->wanted[number] = 0;
      }
    } else if (succeeds([&] { modQMKGeneral::AddOrUpdateCatalogueEntry(path, L"FP3"); })) {
      notes->wanted[number] = 1;
    }
    notes->finished = n + 1;
  }
}

/// Holds the temporary file, half written, until it is killed; for a minute at most.
void stall() {
  constexpr DWORD longestMs = 60'000;
  platform::files::Draft draft(list_file::temporaryBeside(modQMKGeneral::cataloguePath()));
  draft.write("\"FP3\",\"C:\\Hal");
  notes->ready = 1;
  Sleep(longestMs);
}

/// Adds lists, each with a new record and the one before.
void merge(const std::wstring& tag, int count) {
  const auto window = std::make_unique<frmQMK>();
  std::string before;
  for (int number = 0; number < count; ++number) {
    notes->ready = 1;
    const std::string line = platform::text::toCodePage(
        L"\"FP3\",\"" + proofs::pathOf(tag, number) + L"\",\"11/20/2026\"\r\n");
    if (succeeds([&] {
          static_cast<void>(modQMKGeneral::addCatalogueRecords(window->catalogue, before + line));
        })) {
      notes->wanted[number] = 1;
      before = line;
    }
    notes->finished = number + 1;
  }
}

/// Changes the paths of records that are there already.
void move(const std::wstring& from, const std::wstring& to, int count) {
  for (int number = 0; number < count; ++number) {
    notes->ready = 1;
    if (succeeds([&] {
          const auto result = modQMKGeneral::changePaths(
              {{proofs::pathOf(from, number), proofs::pathOf(to, number)}});
          if (result && result->changed != 1) {
            note(L"the record was not there");
          }
        })) {
      notes->wanted[number] = 1;
    }
    notes->finished = number + 1;
  }
}

/// Drops records that are there already, and takes that back.
void regret(const std::wstring& tag, int count) {
  const auto window = std::make_unique<frmQMK>();
  for (int number = 0; number < count; ++number) {
    notes->ready = 1;
    const std::wstring path = proofs::pathOf(tag, number);
    // It is there, and stays there if it cannot be dropped.
    notes->wanted[number] = 1;
    if (succeeds([&] {
          undo::Recording removal(&window->history, L"Remove from List", frmQMK::open);
          modQMKGeneral::dropCatalogueEntry(path, removal.changes());
        })) {
      notes->wanted[number] = 0;
      if (succeeds([&] {
            if (const undo::Outcome outcome = window->history.go(undo::Way::back); !outcome.done) {
              note(outcome.text.c_str());
            }
          })) {
        notes->wanted[number] = 1;
      }
    }
    notes->finished = number + 1;
  }
}

/// Deletes the data files one after the other and takes each deletion back, for ever.
void deleteAndUndo(int count) {
  const auto window = std::make_unique<frmQMK>();
  for (std::int64_t n = 0;; ++n) {
    notes->ready = 1;
    const std::wstring path =
        modQMKGeneral::AppFolder() + L"\\data\\" + proofs::doomedName(static_cast<int>(n % count));
    static_cast<void>(succeeds([&] {
      undo::Recording deletion(&window->history, L"Delete", frmQMK::open);
      modQMKGeneral::RemoveCatalogueEntry(path, deletion.changes());
    }));
    static_cast<void>(succeeds([&] {
      if (const undo::Outcome outcome = window->history.go(undo::Way::back); !outcome.done) {
        note(outcome.text.c_str());
      }
    }));
    notes->finished = n + 1;
  }
}

void refresh() {
  const auto window = std::make_unique<frmQMK>();
  static_cast<void>(succeeds([&] { modQMKGeneral::RefreshDataFolderEntries(window->catalogue); }));
}

/// Appends a line in place like a program that does not know this one: usual sharing, one write,
/// and another try when the file is in use. Two of them (`alone`) must not share writing: under
/// Wine an append is not one step, and they would overwrite each other's lines.
bool appended(const std::wstring& path, const std::string& line, bool alone) {
  constexpr int tries = 2000;
  constexpr DWORD pauseMs = 5;
  for (int attempt = 0; attempt < tries; ++attempt) {
    const FileHandle file(CreateFileW(path.c_str(), FILE_APPEND_DATA,
                                      alone ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file) {
      DWORD written = 0;
      return WriteFile(file.get(), line.data(), static_cast<DWORD>(line.size()), &written,
                       nullptr) != FALSE &&
             written == line.size();
    }
    Sleep(pauseMs);
  }
  return false;
}

void append(const std::wstring& path, const std::wstring& tag, int count, DWORD pauseMs) {
  for (int number = 0; number < count; ++number) {
    notes->ready = 1;
    if (pauseMs > 0) {
      Sleep(pauseMs);
    }
    const std::string line = platform::text::toCodePage(
        L"\"FP3\",\"" + proofs::pathOf(tag, number) + L"\",\"11/20/2026\"\r\n");
    if (succeeds([&] {
          if (!appended(path, line, pauseMs > 0)) {
            note(L"the line could not be appended");
          }
        })) {
      notes->wanted[number] = 1;
    }
    notes->finished = number + 1;
  }
}

/// Keeps the file open until the proof writes 1 into `finished`, or for a minute.
void hold(const std::wstring& path, DWORD share) {
  constexpr DWORD longestMs = 60'000;
  constexpr DWORD pauseMs = 5;
  const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, share, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) {
    note(L"the file cannot be held");
  }
  notes->ready = 1;
  for (DWORD waited = 0; notes->finished == 0 && waited < longestMs; waited += pauseMs) {
    Sleep(pauseMs);
  }
}

int run(const std::vector<std::wstring>& words) {
  constexpr int decimal = 10;
  const auto number = [&](std::size_t index) {
    return std::wcstoll(words.at(index).c_str(), nullptr, decimal);
  };
  const std::wstring& order = words.at(1);
  if (order == L"churn") {
    churn(static_cast<std::uint64_t>(number(2)), number(3), number(4));
  } else if (order == L"write") {
    write(words.at(2), static_cast<int>(number(3)));
  } else if (order == L"merge") {
    merge(words.at(2), static_cast<int>(number(3)));
  } else if (order == L"move") {
    move(words.at(2), words.at(3), static_cast<int>(number(4)));
  } else if (order == L"regret") {
    regret(words.at(2), static_cast<int>(number(3)));
  } else if (order == L"undo") {
    deleteAndUndo(static_cast<int>(number(2)));
  } else if (order == L"share") {
    churnRecords(words.at(2), static_cast<int>(number(3)), number(4));
  } else if (order == L"stall") {
    stall();
  } else if (order == L"refresh") {
    refresh();
  } else if (order == L"append") {
    append(words.at(2), words.at(3), static_cast<int>(number(4)),
           words.size() > 5 ? static_cast<DWORD>(number(5)) : 0);
  } else if (order == L"hold") {
    hold(words.at(2), static_cast<DWORD>(number(3)));
  } else {
    return 2;
  }
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  wchar_t name[MAX_PATH] = {};
  GetEnvironmentVariableW(L"QMK_NOTES", name, MAX_PATH);
  const platform::win32::KernelHandle memory(OpenFileMappingW(FILE_MAP_ALL_ACCESS, FALSE, name));
  if (!memory) {
    return 3;
  }
  notes = static_cast<Notes*>(MapViewOfFile(memory.get(), FILE_MAP_ALL_ACCESS, 0, 0, 0));
  if (notes == nullptr) {
    return 3;
  }
  // As the program does, for the shell's Recycle Bin.
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {
    return 3;
  }
  SetWindowsHookExW(WH_CBT, answerMessages, nullptr, GetCurrentThreadId());
  return run({arguments, arguments + count});
}
