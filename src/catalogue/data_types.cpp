#include "catalogue/data_types.h"

#include <algorithm>
#include <array>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace modQMKGeneral {

namespace {

constexpr std::array types{
    DataType{.number = typeFP3,
             .code = L"FP3",
             .extension = L"fp3",
             .picture = L"PV3",
             .label = L"Fuel Profile",
             .filter = L"Plotscan Fuel Profile",
             .tool = L"plv3.exe",
             .browseSwitch = L" ",
             .newFile = L"New Fuel Profile",
             .newFileRequest = L"#NEW#"},
    DataType{.number = typeBI3,
             .code = L"BI3",
             .extension = L"bi3",
             .picture = L"BW3",
             .label = L"Planar Intercept Inventory",
             .filter = L"Brushtally Planar Intercept",
             .tool = L"brtpc3.exe",
             .browseSwitch = L" bpi ",
             .newFile = L"New Planar Intercept",
             .newFileRequest = {}},
    DataType{.number = typeBS3,
             .code = L"BS3",
             .extension = L"bs3",
             .picture = L"BW3",
             .label = L"Plotview Inventory",
             .filter = L"Brushtally Plotview",
             .tool = L"brtpc3.exe",
             .browseSwitch = L" bps ",
             .newFile = L"New Plotview Inventory",
             .newFileRequest = {}},
    DataType{.number = typeCW3,
             .code = L"CW3",
             .extension = L"cw3",
             .picture = L"CW3",
             .label = L"Canopy Weigh Inventory",
             .filter = L"Canopy Weigh",
             .tool = L"cw3.exe",
             .browseSwitch = L" ",
             .newFile = L"New Canopy Weigh Inventory",
             .newFileRequest = L"#NEW#"},
};

template <class Test>
const DataType* firstOf(Test test) {
  const auto* const found = std::find_if(types.begin(), types.end(), test);
  return found == types.end() ? nullptr : found;
}

}  // namespace

std::span<const DataType> dataTypes() { return types; }

const DataType* typeOfCode(std::wstring_view code) {
  return firstOf(
      [code](const DataType& type) { return platform::text::upperEquals(code, type.code); });
}

const DataType* typeOfNumber(int number) {
  return firstOf([number](const DataType& type) { return type.number == number; });
}

int TypeNumberFromExtension(const std::wstring& fileName) {
  if (fileName.empty()) {
    return typeFP3;
  }
  constexpr std::size_t extensionLength = 4;
  if (fileName.size() < extensionLength) {
    throw platform::RunTimeError(platform::error::invalidCall);
  }
  const std::wstring_view extension =
      std::wstring_view(fileName).substr(fileName.size() - extensionLength);
  const DataType* const type =
      extension.front() == L'.' ? typeOfCode(extension.substr(1)) : nullptr;
  return type == nullptr ? typeUnknown : type->number;
}

std::wstring dataFileFilter() {
  std::wstring filter;
  for (const DataType& type : types) {
    const std::wstring pattern = L"*." + std::wstring(type.extension);
    filter.append(filter.empty() ? L"" : L"|").append(type.filter);
    filter.append(L"(").append(pattern).append(L")|").append(pattern);
  }
  return filter;
}

}  // namespace modQMKGeneral
