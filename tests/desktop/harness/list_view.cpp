#include "harness/list_view.h"

#include <commctrl.h>

#include <bit>
#include <ostream>

#include "harness/remote_memory.h"
#include "harness/text.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

constexpr std::size_t longestText = 2048;

RECT rectFrom(HWND window, const RemoteMemory& memory) {
  RECT rect = memory.get<RECT>();
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

}  // namespace

void PrintTo(const ListViewReader::Column& column, std::ostream* out) {
  *out << utf8(column.text) << " (" << column.width << " px)";
}

int ListViewReader::count() const { return static_cast<int>(send(list_, LVM_GETITEMCOUNT)); }

std::wstring ListViewReader::cell(int row, int column) const {
  RemoteMemory memory(list_, sizeof(LVITEMW) + longestText * sizeof(wchar_t));
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = static_cast<wchar_t*>(memory.address(sizeof(LVITEMW)));
  item.cchTextMax = static_cast<int>(longestText);
  memory.put(item);
  send(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), memory.parameter());
  // The control may hand out a text of its own instead of filling the buffer.
  const auto answered = memory.get<LVITEMW>();
  if (answered.pszText != item.pszText) {
    return L"(text outside the buffer)";
  }
  return memory.getText(longestText, sizeof(LVITEMW));
}

std::vector<std::wstring> ListViewReader::row(int index) const {
  std::vector<std::wstring> cells;
  const int columnCount = static_cast<int>(send(header(), HDM_GETITEMCOUNT));
  cells.reserve(static_cast<std::size_t>(columnCount));
  for (int column = 0; column < columnCount; ++column) {
    cells.push_back(cell(index, column));
  }
  return cells;
}

std::vector<std::vector<std::wstring>> ListViewReader::rows() const {
  std::vector<std::vector<std::wstring>> all;
  const int rowCount = count();
  all.reserve(static_cast<std::size_t>(rowCount));
  for (int index = 0; index < rowCount; ++index) {
    all.push_back(row(index));
  }
  return all;
}

std::vector<std::wstring> ListViewReader::texts() const {
  std::vector<std::wstring> all;
  const int rowCount = count();
  all.reserve(static_cast<std::size_t>(rowCount));
  for (int index = 0; index < rowCount; ++index) {
    all.push_back(cell(index, 0));
  }
  return all;
}

std::optional<int> ListViewReader::find(const std::wstring& text) const {
  const int rowCount = count();
  for (int index = 0; index < rowCount; ++index) {
    if (cell(index, 0) == text) {
      return index;
    }
  }
  return std::nullopt;
}

int ListViewReader::image(int row) const {
  RemoteMemory memory(list_, sizeof(LVITEMW));
  LVITEMW item{};
  item.mask = LVIF_IMAGE;
  item.iItem = row;
  memory.put(item);
  send(list_, LVM_GETITEMW, 0, memory.parameter());
  return memory.get<LVITEMW>().iImage;
}

HWND ListViewReader::header() const { return std::bit_cast<HWND>(send(list_, LVM_GETHEADER)); }

std::vector<ListViewReader::Column> ListViewReader::columns() const {
  std::vector<Column> result;
  const int columnCount = static_cast<int>(send(header(), HDM_GETITEMCOUNT));
  RemoteMemory memory(list_, sizeof(HDITEMW) + longestText * sizeof(wchar_t));
  for (int index = 0; index < columnCount; ++index) {
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
    item.pszText = static_cast<wchar_t*>(memory.address(sizeof(HDITEMW)));
    item.cchTextMax = static_cast<int>(longestText);
    memory.put(item);
    send(header(), HDM_GETITEMW, static_cast<WPARAM>(index), memory.parameter());
    item = memory.get<HDITEMW>();
    result.push_back({memory.getText(longestText, sizeof(HDITEMW)), item.cxy, item.fmt});
  }
  return result;
}

bool ListViewReader::headerShown() const {
  return (style() & LVS_NOCOLUMNHEADER) == 0 && IsWindowVisible(header()) != FALSE;
}

RECT ListViewReader::headerOnScreen(int column) const {
  RemoteMemory memory(list_, sizeof(RECT));
  send(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column), memory.parameter());
  return rectFrom(header(), memory);
}

int ListViewReader::view() const { return static_cast<int>(send(list_, LVM_GETVIEW)); }

DWORD ListViewReader::style() const {
  return static_cast<DWORD>(GetWindowLongPtrW(list_, GWL_STYLE));
}

std::optional<int> ListViewReader::selected() const {
  const auto index =
      static_cast<int>(send(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  return index < 0 ? std::nullopt : std::optional(index);
}

std::optional<int> ListViewReader::focused() const {
  const auto index =
      static_cast<int>(send(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  return index < 0 ? std::nullopt : std::optional(index);
}

int ListViewReader::topRow() const { return static_cast<int>(send(list_, LVM_GETTOPINDEX)); }

void ListViewReader::scrollIntoView(int row) const {
  send(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

RECT ListViewReader::textOnScreen(int row) const {
  RemoteMemory memory(list_, sizeof(RECT));
  memory.put(RECT{LVIR_LABEL, 0, 0, 0});
  send(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), memory.parameter());
  return rectFrom(list_, memory);
}

}  // namespace harness
