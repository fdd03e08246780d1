// The floor for what a person does with a list: a box and two lists, written plainly. The rows of a
// catalogue are in memory as ordinary texts. Each change of the box is one pass of a standard
// search over all of them, and the list shows the rows with a match. A click on a column sorts the
// rows with the standard sort, by keys that are made for it.
//
//   plain_list CATALOGUE    shows its window when all rows are in memory; stays until it is ended
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "windows/list_columns.h"
#include "windows/plain_list.h"
#include "windows/whole_file.h"

namespace {

/// What the columns show.
using Row = std::array<std::wstring, 4>;

struct Plain {
  std::vector<Row> rows;
  std::vector<std::size_t> found;  ///< Numbers of the rows with a match.
  std::vector<wchar_t> capitals;   ///< By unit.
  int sortedBy = 0;                ///< The column.
  std::wstring path;
  HWND box = nullptr;
  HWND list = nullptr;
  HWND other = nullptr;
};

Plain plain;

std::wstring labelOf(std::string_view type) {
  constexpr std::size_t code = 1;  // the types differ in their second letter
  switch (type.size() > code ? type[code] : '\0') {
    case 'p':
    case 'P':
      return L"Fuel Profile";
    case 'i':
    case 'I':
      return L"Planar Intercept Inventory";
    case 's':
    case 'S':
      return L"Plotview Inventory";
    default:
      return L"Canopy Weigh Inventory";
  }
}

void readRows() {
  plain.rows.clear();
  const bench::Bytes file = bench::readFile(plain.path.c_str());
  std::string_view left = file.view();
  for (bench::PlainRecord record; bench::nextRecord(left, record);) {
    plain.rows.push_back({bench::wide(record.name), bench::wide(record.date), labelOf(record.type),
                          bench::wide(record.folder)});
  }
}

void makeCapitals() {
  constexpr std::size_t units = 0x10000;
  plain.capitals.resize(units);
  std::iota(plain.capitals.begin(), plain.capitals.end(), wchar_t{0});
  CharUpperBuffW(plain.capitals.data(), static_cast<DWORD>(plain.capitals.size()));
}

std::wstring boxText() {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(plain.box)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextW(plain.box, text.data(), static_cast<int>(text.size()))));
  return text;
}

bool holds(const Row& row, const std::wstring& wanted) {
  return std::any_of(row.begin(), row.end(), [&wanted](const std::wstring& text) {
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                       [](wchar_t there, wchar_t capital) {
                         return plain.capitals[there] == capital;
                       }) != text.end();
  });
}

void search() {
  std::wstring wanted = boxText();
  for (wchar_t& unit : wanted) {
    unit = plain.capitals[unit];
  }
  plain.found.clear();
  for (std::size_t row = 0; row < plain.rows.size(); ++row) {
    if (wanted.empty() || holds(plain.rows[row], wanted)) {
      plain.found.push_back(row);
    }
  }
  SendMessageW(plain.list, LVM_SETITEMCOUNT, plain.found.size(), 0);
}

/// What compares as the user's language orders the texts, without regard to case.
std::string keyOf(const std::wstring& text) {
  constexpr DWORD kind = LCMAP_SORTKEY | NORM_IGNORECASE;
  const auto length = static_cast<int>(text.size());
  const int size = length == 0 ? 0
                               : LCMapStringEx(LOCALE_NAME_USER_DEFAULT, kind, text.data(), length,
                                               nullptr, 0, nullptr, nullptr, 0);
  std::string key(static_cast<std::size_t>(size), '\0');
  if (size > 0) {
    LCMapStringEx(LOCALE_NAME_USER_DEFAULT, kind, text.data(), length,
                  reinterpret_cast<wchar_t*>(key.data()), size, nullptr, nullptr, 0);
  }
  return key;
}

/// Shows all rows, sorted by the column.
void sortRows() {
  std::vector<std::pair<std::string, std::size_t>> keys;
  keys.reserve(plain.rows.size());
  for (std::size_t row = 0; row < plain.rows.size(); ++row) {
    keys.emplace_back(keyOf(plain.rows[row].at(static_cast<std::size_t>(plain.sortedBy))), row);
  }
  std::sort(keys.begin(), keys.end());
  plain.found.clear();
  for (const auto& [key, row] : keys) {
    plain.found.push_back(row);
  }
  SendMessageW(plain.list, LVM_SETITEMCOUNT, plain.found.size(), 0);
}

void supply(LVITEMW& item) {
  const auto row = static_cast<std::size_t>(item.iItem);
  if (row >= plain.found.size()) {
    return;
  }
  if ((item.mask & LVIF_TEXT) != 0) {
    item.pszText = plain.rows[plain.found[row]].at(static_cast<std::size_t>(item.iSubItem)).data();
  }
  if ((item.mask & LVIF_IMAGE) != 0) {
    item.iImage = 0;
  }
}

void notify(NMHDR& header) {
  if (header.code == LVN_GETDISPINFOW) {
    supply(std::bit_cast<NMLVDISPINFOW*>(&header)->item);
  } else if (header.code == LVN_COLUMNCLICK) {
    plain.sortedBy = std::bit_cast<NMLISTVIEW*>(&header)->iSubItem;
    sortRows();
  }
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(first) == EN_CHANGE) {
        search();
      }
      return 0;
    case WM_NOTIFY:
      notify(*std::bit_cast<NMHDR*>(second));
      return 0;
    case bench::plainReload:
      readRows();
      sortRows();
      return 0;
    case bench::plainShow: {
      const bool rows = first == static_cast<WPARAM>(bench::plainRows);
      ShowWindow(rows ? plain.other : plain.list, SW_HIDE);
      ShowWindow(rows ? plain.list : plain.other, SW_SHOWNA);
      return 0;
    }
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

HWND makeChild(HWND parent, int id, const wchar_t* classOfChild, DWORD style) {
  return CreateWindowExW(WS_EX_CLIENTEDGE, classOfChild, L"", WS_CHILD | WS_VISIBLE | style, 0, 0,
                         100, 22, parent, std::bit_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                         nullptr);
}

/// The system's font, and a picture: without them the rows would be of another height than the
/// program's. And with a picture of the list in memory the system paints it faster.
void dressList() {
  constexpr DWORD look = LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT;
  SendMessageW(plain.list, LVM_SETEXTENDEDLISTVIEWSTYLE, look, look);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  HFONT const font = CreateFontIndirectW(&metrics.lfMessageFont);
  SendMessageW(plain.list, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  constexpr int side = 16;
  HIMAGELIST const pictures = ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, 1, 0);
  ImageList_ReplaceIcon(pictures, -1, LoadIconW(nullptr, IDI_APPLICATION));
  SendMessageW(plain.list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(pictures));
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*commandLine*/,
                    int /*showCommand*/) {
  if (__argc != 2) {
    return 2;
  }
  InitCommonControls();
  makeCapitals();
  plain.path = __wargv[1];
  readRows();
  WNDCLASSW description{};
  description.lpfnWndProc = procedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = bench::plainListClass;
  RegisterClassW(&description);
  HWND const window =
      CreateWindowExW(0, description.lpszClassName, L"Plain list", WS_OVERLAPPEDWINDOW, 0, 0, 700,
                      500, nullptr, nullptr, instance, nullptr);
  plain.box = makeChild(window, bench::plainBox, WC_EDITW, 0);
  plain.list = makeChild(window, bench::plainRows, WC_LISTVIEWW, LVS_REPORT | LVS_OWNERDATA);
  plain.other = makeChild(window, bench::plainOther, WC_LISTVIEWW, LVS_ICON);
  ShowWindow(plain.other, SW_HIDE);
  dressList();
  bench::addColumns(plain.list, static_cast<int>(Row{}.size()));
  search();
  ShowWindow(window, SW_SHOWNOACTIVATE);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
