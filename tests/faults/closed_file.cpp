#include "faults/closed_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "faults/sweep.h"
#include "platform/desktop.h"
#include "platform/text.h"

namespace faults {

using memory::desktop;

std::string lineOf(const std::wstring& path) {
  return record("FP3", platform::text::toCodePage(path), "11/20/2026");
}

bool inTheInstant() {
  if (!desktop().disk().isOpen(temporaryFile)) {
    return false;
  }
  const auto& journal = desktop().journal();
  const auto last = std::find_if(journal.rbegin(), journal.rend(), [](const std::wstring& entry) {
    return entry.starts_with(L"replace ") || entry.starts_with(L"hold ");
  });
  return last != journal.rend() && *last == L"hold " + catalogueFile;
}

void expectTheNextOperationWorks() {
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\next.fp3", L"FP3");
  EXPECT_NE(desktop().bytesOf(catalogueFile).value_or("").find(lineOf(L"D:\\next.fp3")),
            std::string::npos);
  EXPECT_TRUE(desktop().messages.empty());
  EXPECT_EQ(desktop().namesIn(L"C:\\App"), std::vector<std::wstring>{L"QMKFileList3.txt"});
}

}  // namespace faults
