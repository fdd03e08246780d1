#include "catalogue/entry.h"

#include "catalogue/catalogue_view.h"

namespace modQMKGeneral {

DataEntry dataEntry(const controls::ListView& list, std::size_t index) {
  return {.name = list.text(index),
          .folder = list.subItem(index, data_column::folder),
          .date = list.subItem(index, data_column::date),
          .label = list.subItem(index, data_column::label),
          .type = list.subItem(index, data_column::type)};
}

DataEntry selectedEntry(const controls::ListView& list) {
  return dataEntry(list, list.selectedItem());
}

controls::ItemKey selectedKey(const controls::ListView& list) {
  return list.keyOf(list.selectedItem(), data_column::entry);
}

}  // namespace modQMKGeneral
