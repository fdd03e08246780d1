// The find box, the order of the files and the widths of the columns.
#include <algorithm>

#include "catalogue/catalogue_view.h"
#include "catalogue/date_order.h"
#include "flatlook/form_style.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/main_window.h"
#include "platform/native_windows.h"
#include "platform/windows.h"

using controls::ListView;

void frmQMK::mnuFind_Click() { txtFind.selectAll(); }

void frmQMK::calmClearButton() {
  constexpr std::uint32_t windowBackground = 0x80000005;
  constexpr std::uint32_t white = 0xFFFFFF;
  const auto colour = platform::native::translateColour(windowBackground).value_or(white);
  OC_COLOR::colour(cmdClearFind, {colour, colour});
}

void frmQMK::showClearButton() { cmdClearFind.setVisible(!txtFind.text().empty()); }

void frmQMK::txtFind_Typed() {
  calmClearButton();  // the system's colours may be others by now
  showClearButton();
  currentList().setFind(txtFind.text());
}

bool frmQMK::txtFind_KeyDown(const controls::KeyStroke& stroke) {
  if (stroke == controls::KeyStroke{controls::keys::down}) {
    currentList().setFocus();
    return true;
  }
  if (stroke == controls::KeyStroke{controls::keys::enter}) {
    lstQMK_DblClick(TabMain.current());
    return true;
  }
  if (stroke == controls::KeyStroke{controls::keys::escape}) {
    if (txtFind.text().empty()) {
      currentList().setFocus();
    } else {
      txtFind.setText({});
      txtFind_Typed();
    }
    return true;
  }
  return false;
}

void frmQMK::cmdClearFind_Click() {
  txtFind.setText({});
  txtFind.setFocus();
  txtFind_Typed();
}

bool frmQMK::nothingFound(const ListView& list) { return list.narrowed() && list.rows() == 0; }

void frmQMK::setNewestFirst(bool on) {
  commands.item(ids::mnuNewestFirst).setChecked(on);
  lstQMK[open].setRanking(on ? std::optional(ListView::Ranking{modQMKGeneral::data_column::date,
                                                               modQMKGeneral::dateRanks})
                             : std::nullopt);
}

void frmQMK::mnuNewestFirst_Click() { setNewestFirst(!lstQMK[open].ranking()); }

void frmQMK::mnuFitColumns_Click() {
  for (std::size_t column = 0; column < currentList().columns().size(); ++column) {
    fitColumn(TabMain.current(), column);
  }
}

void frmQMK::fitColumn(int index, std::size_t column) {
  using platform::scaled;
  ListView& list = lstQMK.at(static_cast<std::size_t>(index));
  if (column >= list.columns().size() || list.columns()[column].widthTwips == 0) {
    return;  // a hidden column stays hidden
  }
  // At 96 dpi: the space around a cell's text and a header's text, the small picture, the scroll
  // bar.
  constexpr int cellSpace = 14;
  constexpr int headerSpace = 24;
  constexpr int picture = 20;
  constexpr int scrollBar = 22;
  const int header =
      list.headersHidden()
          ? 0
          : platform::windows::textSize(list.columns()[column].text, {}, dpi_).width +
                scaled(headerSpace, dpi_);
  const int texts =
      platform::windows::widestText(
          list.count(), [&](std::size_t item) { return list.cell(item, column); }, {}, dpi_) +
      scaled(column == 0 ? cellSpace + picture : cellSpace, dpi_);
  const int most = std::max(1, list.bounds().width - scaled(scrollBar, dpi_));
  const int pixels = std::min(std::max(header, texts), most);
  list.setColumnWidth(column, (pixels * platform::twipsPerInch + dpi_ - 1) / dpi_);
}
