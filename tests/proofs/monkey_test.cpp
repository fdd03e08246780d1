// Random events with real input, replayed with QMK_SEED: no crash, no hang, and at the end every
// list shows what is in its file. The test also runs on a heap where every misuse faults at once;
// on a normal heap the crash comes later, elsewhere, or not at all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "harness/eventually.h"
#include "harness/files.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/url_scheme.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "monkey.h"

namespace proofs {
namespace {

using harness::Tab;
using Texts = std::vector<std::wstring>;

/// The quoted fields of each line; nobody here writes other forms.
std::vector<Texts> records(const std::wstring& path) {
  const std::wstring text = harness::fromCodePage(harness::readFile(path).value_or(""));
  std::vector<Texts> all;
  Texts fields;
  std::wstring field;
  bool quoted = false;
  for (const wchar_t c : text) {
    if (c == L'"') {
      if (quoted) {
        fields.push_back(field);
        field.clear();
      }
      quoted = !quoted;
    } else if (quoted) {
      field += c;
    } else if (c == L'\n') {
      all.push_back(fields);
      fields.clear();
    }
  }
  return all;
}

Texts sorted(Texts texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

Texts catalogued(const std::wstring& path) {
  Texts names;
  for (const Texts& record : records(path)) {
    const std::size_t slash = record.at(1).rfind(L'\\');
    if (slash != std::wstring::npos && slash + 1 < record.at(1).size()) {
      names.push_back(record.at(1).substr(slash + 1));
    }
  }
  return sorted(names);
}

Texts pages(const std::wstring& path) {
  Texts names;
  for (const Texts& record : records(path)) {
    names.push_back(record.at(0));
  }
  return sorted(names);
}

Texts shortcuts(const std::wstring& folder) {
  Texts names;
  for (const std::wstring& name : harness::namesIn(folder)) {
    if (name.ends_with(L".lnk")) {
      names.push_back(name.substr(0, name.find(L'.')));
    }
  }
  return sorted(names);
}

/// Makes a list read its file again and waits until it shows it.
void expectShown(const harness::GatewayApp& app, int tab, Texts (*wanted)(const std::wstring&),
                 const std::wstring& where) {
  const harness::ListViewReader list = app.list(tab);
  harness::send(list.window(), WM_KEYDOWN, VK_F5);
  EXPECT_TRUE(harness::eventually([&] { return std::tuple(sorted(list.texts()), wanted(where)); },
                                  ::testing::Eq()))
      << "list " << tab;
}

void run(std::uint64_t seed, int events) {
  harness::GatewayApp app;
  harness::GatewayApp::skipExample();
  // A missing tool gives a message instead of a start, which takes much longer.
  app.addTool(L"plv3.exe");
  app.addTool(L"viewer.exe");
  const std::wstring viewer = L"\"" + app.folder() + L"\\viewer.exe\" \"%1\"";
  // No real page may be opened, wherever the clicks go.
  const harness::UrlScheme scheme(L"qmkproof", viewer);
  const harness::UrlScheme http(L"http", viewer);
  const harness::UrlScheme https(L"https", viewer);
  for (int n = 0; n < 12; ++n) {
    app.addDataFile(L"Plot " + std::to_wstring(n) + L".fp3");
  }
  harness::writeFile(app.folder() + L"\\QMKWebList.txt",
                     "\"Home\",\"qmkproof:home\"\r\n\"Other\",\"qmkproof:other\"\r\n");
  Monkey monkey(app, seed);
  monkey.forgetPlace(seed % 2 == 0);
  app.startToMain();
  int done = 0;
  try {
    for (; done < events; ++done) {
      monkey.act();
    }
    monkey.tidyUp();
    expectShown(app, Tab::open, catalogued, app.cataloguePath());
    expectShown(app, Tab::web, pages, app.folder() + L"\\QMKWebList.txt");
    expectShown(app, Tab::tools, shortcuts, app.shortCutsFolder());
    monkey.leave();
    EXPECT_EQ(app.waitForExit(), 0U);
    EXPECT_TRUE(monkey.placeIsStored());
  } catch (const harness::Failure& failure) {
    ADD_FAILURE() << "seed " << seed << ", event " << done << ": " << failure.what();
  }
  app.kill();
  figure("monkey, seed", static_cast<std::int64_t>(seed));
  figure("monkey, events", done);
  figure("monkey, events after which no dialog was open", monkey.free());
  figure("monkey, left the program and came back", monkey.restarts());
  figure("monkey, longest answer", std::to_string(monkey.slowestMs()) + " ms");
}

TEST(Monkey, FindsNothing) { run(seed(), amount(1000, 100'000)); }

TEST(Monkey, FindsNothingOnAGuardedHeap) {
  SetEnvironmentVariableW(L"QMK_GATEWAY",
                          (harness::buildFolder() + L"\\gateway3_guarded.exe").c_str());
  // Other events than in the first test.
  run(seed() + 1, amount(500, 30'000));
  SetEnvironmentVariableW(L"QMK_GATEWAY", nullptr);
}

}  // namespace
}  // namespace proofs
