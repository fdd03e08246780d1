#include <windows.h>

#include <array>
#include <cmath>
#include <map>
#include <optional>

#include "catalogue_text.h"
#include "harness/files.h"
#include "harness/wait.h"
#include "windows/capture.h"
#include "windows/driven_gateway.h"
#include "windows/driver_rows.h"
#include "windows/plain_list_window.h"
#include "windows/process_facts.h"

namespace bench {
namespace {

constexpr std::size_t smallest = 1000;
constexpr std::size_t small = 10000;
constexpr std::size_t large = 100000;
constexpr std::size_t largest = 1000000;

constexpr const char* textbookRow = "load.100k.textbook";
constexpr const char* growthRow = "load.growth";
constexpr const char* memoryRow = "load.1m.memory";
constexpr const char* peakRow = "load.1m.peak";

struct Size {
  std::size_t records;
  const char* row;
  double limit;
  int runs;
  /// Most of the time goes into the painting, so the other side paints the same rows.
  bool painted;
};
constexpr Size sizes[] = {{smallest, "load.1k", 3.0, 15, true},
                          {small, "load.10k", 1.3, 15, true},
                          {large, "load.100k", 1.1, 9, false},
                          {largest, "load.1m", 1.1, 5, false}};

/// Two catalogues of one size. They take turns as the program's catalogue.
class Catalogues {
 public:
  Catalogues(const DrivenGateway& gateway, std::size_t records)
      : path_(gateway.app.cataloguePath()), kept_{path_ + L".one", path_ + L".other"} {
    for (std::size_t n = 0; n < kept_.size(); ++n) {
      harness::writeFile(kept_.at(n), catalogueText(records, static_cast<unsigned>(n) + 1));
    }
    exchange();
  }
  Catalogues(const Catalogues&) = delete;
  Catalogues& operator=(const Catalogues&) = delete;
  ~Catalogues() {
    for (const std::wstring& kept : kept_) {
      DeleteFileW(kept.c_str());
    }
  }

  /// Puts the other catalogue in the place of the present one, in one step. A copy keeps its time,
  /// so the two always differ in it.
  void exchange() {
    const std::wstring beside = path_ + L".beside";
    if (CopyFileW(kept_.at(next_).c_str(), beside.c_str(), FALSE) == 0 ||
        MoveFileExW(beside.c_str(), path_.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
      throw harness::Failure("the catalogues cannot be swapped");
    }
    next_ = 1 - next_;
  }
  [[nodiscard]] const std::wstring& path() const { return path_; }

 private:
  std::wstring path_;
  std::array<std::wstring, 2> kept_;
  std::size_t next_ = 0;
};

/// Time from the changed file to the painted rows.
double loadOnce(const DrivenGateway& gateway, Catalogues& catalogues, std::size_t records) {
  catalogues.exchange();
  const std::int64_t begin = now();
  gateway.tick();
  gateway.paint();
  const std::int64_t end = now();
  if (gateway.count(harness::Tab::open) != static_cast<int>(records)) {
    throw harness::Failure("the list does not show " + std::to_string(records) + " rows but " +
                           std::to_string(gateway.count(harness::Tab::open)));
  }
  return milliseconds(begin, end);
}

/// Lets the program load the present catalogue, outside any measurement.
void settle(const DrivenGateway& gateway, std::size_t records) {
  waitClosely("the list shows the catalogue", [&gateway, records] {
    gateway.tick();
    return gateway.count(harness::Tab::open) == static_cast<int>(records);
  });
  gateway.paint();
}

void measureMemory(const Table& table) {
  DrivenGateway gateway;
  gateway.startToOpenTab();
  gateway.placeCatalogue(catalogueText(1));
  settle(gateway, 1);
  const ProcessFacts facts(gateway.app.process().handle(),
                           gateway.app.folder() + L"\\gateway3.exe");
  const std::uint64_t before = facts.privateBytes();
  const std::uint64_t peakBefore = facts.peakBytes();
  const std::string text = catalogueText(largest, 3);
  gateway.placeCatalogue(text);
  settle(gateway, largest);
  const auto megabytes = [](std::uint64_t bytes) { return static_cast<double>(bytes) / 1e6; };
  const double grown = megabytes(facts.privateBytes() - before);
  const double peak = megabytes(facts.peakBytes() - peakBefore);
  const double file = megabytes(text.size());
  table.print({memoryRow, grown / file, 2.0, Limit::atMost, grown, file, 1});
  table.print({peakRow, peak / file, 0, Limit::none, peak, file, 1});
  gateway.stop();
}

}  // namespace

void measureLoads(const Table& table) {
  std::vector<std::string> names{textbookRow, growthRow};
  for (const Size& size : sizes) {
    names.emplace_back(size.row);
  }
  std::map<std::size_t, double> medians;
  table.section(names, [&] {
    DrivenGateway gateway;
    gateway.startToOpenTab();
    for (const Size& size : sizes) {
      const bool forGrowth =
          table.wanted(growthRow) && (size.records == small || size.records == largest);
      const bool forTextbook = table.wanted(textbookRow) && size.records == large;
      if ((!table.wanted(size.row) && !forGrowth && !forTextbook) ||
          (table.quick() && size.records == largest)) {
        continue;
      }
      Catalogues catalogues(gateway, size.records);
      settle(gateway, size.records);
      const auto load = [&] { return loadOnce(gateway, catalogues, size.records); };
      std::optional<PlainList> plain;
      if (size.painted) {
        plain.emplace(catalogues.path());
        plain->resemble(gateway.main(), gateway.list(harness::Tab::open));
      }
      const Pair pair = Pair::inTurns(table.runs(size.runs), load, [&] {
        return plain ? plain->reload() : printedTime(L"floor.exe", catalogues.path());
      });
      table.printRatio(size.row, pair, size.limit);
      medians[size.records] = median(pair.ours);
      if (forTextbook) {
        // The other way round: how many times as long the textbook takes.
        const Pair textbook = Pair::inTurns(
            table.quick() ? 1 : 3,
            [&] { return printedTime(L"textbook_list.exe", catalogues.path()); }, load);
        table.printRatio(textbookRow, textbook, 18.0, Limit::atLeast);
      }
    }
    if (medians.contains(small) && medians.contains(largest)) {
      const auto work = [](std::size_t n) {
        return static_cast<double>(n) * std::log(static_cast<double>(n));
      };
      // Growth of the time divided by n log n, from the smallest size to the largest.
      const double grown = medians[largest] / medians[small] / (work(largest) / work(small));
      table.print({growthRow, grown, 0.95, Limit::atMost, medians[largest], medians[small], 1});
    }
    gateway.stop();
  });
  if (!table.quick()) {
    table.section({memoryRow, peakRow}, [&table] { measureMemory(table); });
  }
}

}  // namespace bench
